// SPDX-License-Identifier: MIT
#include "app/OpenTools.h"

#include "overlays/LightPen.h"
#include "overlays/Magnifie.h"
#include "overlays/Spolight2.h"
#include "support/TestMain.h"
#include "support/UserFile.h"
#include "support/ViewNumbers.h"

#include <QSignalSpy>

using vexa::ClosingReport;
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
        QTest::addColumn<HeldToolChoice>("choice");
        QTest::newRow("spotlight") << HeldToolChoice::Spotlight;
        QTest::newRow("magnifier") << HeldToolChoice::Magnifier;
        QTest::newRow("laser") << HeldToolChoice::Laser;
        QTest::newRow("none of them") << HeldToolChoice(3);
    }

    void onlyTheToolOfThatKindIsAskedToExit() {
        QFETCH(HeldToolChoice, choice);
        OpenTools tools;
        tools.openSpotlight();
        tools.openMagnifier();
        tools.openLaser();
        QSignalSpy reports(&tools, &OpenTools::reported);
        tools.exitHeldTool(choice);
        awaitExits();
        const int left = choice == HeldToolChoice(3) ? 3 : 2;
        QTRY_COMPARE(heldTools(), left); // on a busy machine the two may go in either order
        QCOMPARE(objects<Spolight2>().isEmpty(), choice == HeldToolChoice::Spotlight);
        QCOMPARE(objects<Magnifie>().isEmpty(), choice == HeldToolChoice::Magnifier);
        QCOMPARE(objects<LightPen>().isEmpty(), choice == HeldToolChoice::Laser);
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
        QVERIFY(tools.forget(ClosingReport::Blackboard));
        QVERIFY(tools.annotationOpen() && !tools.blackboardOpen());
        QVERIFY(tools.forget(ClosingReport::Annotation));
        QVERIFY(!tools.annotationOpen());
        const QList<std::pair<ClosingReport, void (OpenTools::*)()>> heldTools{
            {ClosingReport::Spotlight, &OpenTools::openSpotlight},
            {ClosingReport::Magnifier, &OpenTools::openMagnifier},
            {ClosingReport::Laser, &OpenTools::openLaser}};
        for (const auto &[report, open] : heldTools) {
            (tools.*open)();
            for (int other = -1; other <= 5; ++other)
                if (ClosingReport(other) != report)
                    tools.forget(ClosingReport(other));
            QVERIFY(tools.heldToolOpen());
            QVERIFY(tools.forget(report));
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
        QCOMPARE(reports, (QList<QVariantList>{{int(ClosingReport::Laser)}}));
        QCOMPARE(formerReports.size(), 1);
    }
};

VEXA_WIDGET_TEST_MAIN(OpenToolsTest)
#include "OpenToolsTest.moc"
