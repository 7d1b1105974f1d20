// SPDX-License-Identifier: MIT
#include "app/OpenTools.h"

#include "overlays/LightPen.h"
#include "overlays/Magnifie.h"
#include "overlays/Spolight2.h"
#include "support/TestMain.h"
#include "support/UserFile.h"

#include <QSignalSpy>

using vexa::ClosingReport;
using vexa::HeldToolChoice;
using vexa::OpenTools;

namespace {

template<typename Tool> QList<QPointer<Tool>> objects() {
    QList<QPointer<Tool>> found;
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (auto *tool = qobject_cast<Tool *>(widget))
            found += tool;
    return found;
}

int heldTools() {
    return objects<LightPen>().size() + objects<Magnifie>().size() + objects<Spolight2>().size();
}

/// One that is opened and asked to exit last goes last: by then every other that had been asked has gone.
void awaitExits() {
    OpenTools later;
    later.openLaser();
    later.exitHeldTool(HeldToolChoice::Laser);
    QTRY_VERIFY(!later.heldToolOpen());
}

} // namespace

class OpenToolsTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { QTRY_COMPARE(heldTools(), 0); }

    void onlyTheToolOfThatKindIsAskedToExit_data() {
        QTest::addColumn<int>("choice");
        QTest::newRow("spotlight") << 0;
        QTest::newRow("magnifier") << 1;
        QTest::newRow("laser") << 2;
        QTest::newRow("none of them") << 3;
    }

    void onlyTheToolOfThatKindIsAskedToExit() {
        QFETCH(int, choice);
        OpenTools tools;
        tools.openSpotlight();
        tools.openMagnifier();
        tools.openLaser();
        QSignalSpy reports(&tools, &OpenTools::reported);
        tools.exitHeldTool(HeldToolChoice(choice));
        awaitExits();
        const int left = choice < 3 ? 2 : 3;
        QCOMPARE(heldTools(), left);
        QCOMPARE(objects<Spolight2>().isEmpty(), choice == 0);
        QCOMPARE(objects<Magnifie>().isEmpty(), choice == 1);
        QCOMPARE(objects<LightPen>().isEmpty(), choice == 2);
        QCOMPARE(reports.size(), 3 - left);
    }

    void forgottenToolsAreNotOpenButGoWithTheRest() {
        OpenTools tools;
        tools.openLaser();
        QVERIFY(tools.heldToolOpen());
        tools.forgetHeldTools();
        QVERIFY(!tools.heldToolOpen());
        awaitExits();
        QCOMPARE(heldTools(), 1);
        emit tools.leave();
        QTRY_COMPARE(heldTools(), 0);
    }

    void everyReportForgetsItsTool() {
        OpenTools tools;
        tools.openAnnotation();
        tools.openBlackboard();
        QVERIFY(tools.forget(ClosingReport(0)));
        QVERIFY(tools.annotationOpen() && !tools.blackboardOpen());
        QVERIFY(tools.forget(ClosingReport(1)));
        QVERIFY(!tools.annotationOpen());
        const QList<std::pair<int, void (OpenTools::*)()>> heldTools{
            {2, &OpenTools::openSpotlight}, {3, &OpenTools::openMagnifier}, {4, &OpenTools::openLaser}};
        for (const auto &[report, open] : heldTools) {
            (tools.*open)();
            for (int other : {0, 1, 2, 3, 4, 5, -1})
                if (other != report)
                    tools.forget(ClosingReport(other));
            QVERIFY(tools.heldToolOpen());
            QVERIFY(tools.forget(ClosingReport(report)));
            QVERIFY(!tools.heldToolOpen());
        }
        QVERIFY(!tools.forget(ClosingReport(5)));
        QVERIFY(!tools.forget(ClosingReport(-1)));
    }

    void theReportOfAFormerToolIsToldApart() {
        OpenTools tools;
        tools.openLaser();
        tools.openLaser();
        QSignalSpy reports(&tools, &OpenTools::reported);
        QSignalSpy formerReports(&tools, &OpenTools::formerReported);
        emit tools.leave();
        QTRY_COMPARE(heldTools(), 0);
        QCOMPARE(reports, (QList<QVariantList>{{4}}));
        QCOMPARE(formerReports.size(), 1);
    }
};

VEXA_WIDGET_TEST_MAIN(OpenToolsTest)
#include "OpenToolsTest.moc"
