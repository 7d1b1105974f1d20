// SPDX-License-Identifier: MIT
#include "app/PrivacyGate.h"
#include "app/PrivacyprivilegesWindow.h"
#include "app/QuitRequest.h"
#include "fakes/Desktop.h"
#include "support/TestMain.h"
#include "support/UserFile.h"

#include <QTimer>

using namespace vexa::test;

/// The guide at the start, with its own window: where it leads.
class PrivacyPaneTest : public QObject {
    Q_OBJECT

private slots:
    void cleanupTestCase() { userfile::clear(); }

    void everyAnswerLeadsToThePane_data() {
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("quits");
        QTest::addColumn<int>("panes");
        QTest::newRow("confirmed for good") << 1 << false << 1;
        QTest::newRow("confirmed for now") << 0 << false << 1;
        QTest::newRow("asked to end") << 0 << true << 0; // the last: no event loop runs after that
    }

    void everyAnswerLeadsToThePane() {
        QFETCH(int, answer);
        QFETCH(bool, quits);
        QFETCH(int, panes);
        userfile::startAfresh();
        vexa::fakeDesktop().openedPanes = 0;
        vexa::QuitRequest quit;
        bool shown = false;
        QTimer::singleShot(0, this, [&] {
            auto *const guide = qobject_cast<PrivacyprivilegesWindow *>(QApplication::activeModalWidget());
            shown = guide != nullptr;
            if (quits)
                quit.request();
            else if (guide)
                guide->recvQmlMessage(answer, 0);
        });
        vexa::passPrivacyGate(quit);
        QVERIFY(shown);
        QCOMPARE(vexa::fakeDesktop().openedPanes, panes);
        QCOMPARE(ZrToolXmlClass::ShowPrivacyWindow, answer == 1 ? 0 : 1);
    }
};

VEXA_WIDGET_TEST_MAIN(PrivacyPaneTest)
#include "PrivacyPaneTest.moc"
