// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "e2e/SessionManager.h"
#include "support/Patience.h"
#include "support/TestMain.h"

using namespace vexa::test;

/// Logging out of a desktop that asks its programs first.
class LogOutTest : public QObject {
    Q_OBJECT

private slots:
    void thePanelThatRefusesToCloseDoesNotRefuseTheLogOut() {
        e2e::SessionManager manager;
        e2e::Program program;
        program.setEnvironment(QStringLiteral("SESSION_MANAGER"), manager.address());
        QVERIFY(program.start());
        QTRY_VERIFY_WITH_TIMEOUT(manager.hasClient(), patience);
        QTRY_VERIFY_WITH_TIMEOUT(e2e::hasWithdrawn(program.pid()), patience);
        program.unsetEnvironment(
            QStringLiteral("SESSION_MANAGER")); // it would wait for an answer of this process
        QCOMPARE(program.runToTheEnd().how, QByteArray("ended with 0"));
        QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(program.pid()).id, patience);

        manager.logOut();
        QTRY_VERIFY_WITH_TIMEOUT(!program.isRunning(), patience);
        QVERIFY(!manager.wasRefused());
        QCOMPARE(program.waitForEnd().how, QByteArray("ended with 0"));
    }

    void itEndsTheProgramDuringTheGuide() {
        e2e::SessionManager manager;
        e2e::Program program({{"ShowPrivacyWindow", 1}});
        program.setEnvironment(QStringLiteral("SESSION_MANAGER"), manager.address());
        QVERIFY(program.start());
        QTRY_VERIFY_WITH_TIMEOUT(manager.hasClient(), patience);
        QTRY_VERIFY_WITH_TIMEOUT(e2e::visibleWindowOfSize(program.pid(), QSize(494, 300)).id, patience);

        manager.logOut();
        QTRY_VERIFY_WITH_TIMEOUT(!program.isRunning(), patience);
        QCOMPARE(program.waitForEnd().how, QByteArray("ended with 0"));
    }
};

VEXA_WIDGET_TEST_MAIN(LogOutTest)
#include "LogOutTest.moc"
