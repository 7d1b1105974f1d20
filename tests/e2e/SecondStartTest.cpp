// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "support/Patience.h"
#include "support/RealInput.h"
#include "support/TestMain.h"

#include <QElapsedTimer>

#include <csignal>

using namespace vexa::test;

namespace {

constexpr int escapeKey = 9;
const QSize guideSize(494, 300);

} // namespace

/// Starting the program while it runs.
class SecondStartTest : public QObject {
    Q_OBJECT

private slots:
    void theFirstShowsItsPanelAndTheSecondEndsWithZero() {
        e2e::Program program;
        QVERIFY(e2e::startAndSettle(program));
        QVERIFY(!e2e::panelOf(program.pid()).id);
        const auto end = program.runToTheEnd();
        QCOMPARE(end.how, QByteArray("ended with 0"));
        QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(program.pid()).id, patience);
        QVERIFY(program.isRunning());
    }

    void itEndsWithoutAWord() {
        e2e::Program program;
        QVERIFY(program.start());
        QTRY_VERIFY_WITH_TIMEOUT(!e2e::windowsOf(program.pid()).isEmpty(), patience);
        QCOMPARE(program.runToTheEnd().errors, QByteArray());
    }

    void itIsHeardWhileTheFirstIsStillStarting() {
        e2e::Program program;
        QVERIFY(program.start());
        QTRY_VERIFY_WITH_TIMEOUT(!e2e::windowsOf(program.pid()).isEmpty(), patience);
        QCOMPARE(program.runToTheEnd().how, QByteArray("ended with 0"));
        QTRY_VERIFY_WITH_TIMEOUT(e2e::hasWithdrawn(program.pid()), patience);
        QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(program.pid()).id, patience);
    }

    void duringTheGuideItIsRemembered() {
        e2e::Program program({{"ShowPrivacyWindow", 1}});
        QVERIFY(program.start());
        QTRY_VERIFY_WITH_TIMEOUT(e2e::visibleWindowOfSize(program.pid(), guideSize).id, patience);
        QCOMPARE(program.runToTheEnd().how, QByteArray("ended with 0"));
        const e2e::Window guide = e2e::visibleWindowOfSize(program.pid(), guideSize);
        QVERIFY(guide.id);

        // Typed once: a second one could reach the panel, which it closes.
        QTRY_VERIFY_WITH_TIMEOUT(e2e::hasFocus(guide), patience);
        typeKey(escapeKey);
        QTRY_VERIFY_WITH_TIMEOUT(!e2e::visibleWindowOfSize(program.pid(), guideSize).id, patience);
        // It has been asked for, so it is there again.
        QTRY_VERIFY_WITH_TIMEOUT(e2e::hasWithdrawn(program.pid()), patience);
        QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(program.pid()).id, patience);
    }

    void aPanelOnAnotherDesktopComesToThePresentOne() {
        e2e::Program program;
        QVERIFY(e2e::startAndSettle(program));
        QCOMPARE(program.runToTheEnd().how, QByteArray("ended with 0"));
        QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(program.pid()).id, patience);
        const e2e::Window panel = e2e::panelOf(program.pid());
        const int home = e2e::presentDesktop();
        QTRY_COMPARE_WITH_TIMEOUT(e2e::desktopOf(panel), home, patience);
        const int other = home + 1;
        e2e::switchToDesktop(quint32(other));
        QTRY_COMPARE_WITH_TIMEOUT(e2e::presentDesktop(), other, patience);
        QTRY_VERIFY_WITH_TIMEOUT(!e2e::panelOf(program.pid()).id, patience);

        QCOMPARE(program.runToTheEnd().how, QByteArray("ended with 0"));
        QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(program.pid()).id, patience);
        QCOMPARE(e2e::presentDesktop(), other);
        QTRY_COMPARE_WITH_TIMEOUT(e2e::desktopOf(panel), other, patience);
        e2e::switchToDesktop(quint32(home));
        QTRY_COMPARE_WITH_TIMEOUT(e2e::presentDesktop(), home, patience);
    }

    void itNeedsNoBus_data() {
        QTest::addColumn<QString>("firstBus");
        QTest::addColumn<QString>("secondBus");
        const QString none = QStringLiteral("disabled:");
        const QString nowhere = QStringLiteral("unix:path=/nowhere");
        const QString usual = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
        QTest::newRow("none") << none << none;
        QTest::newRow("none for the first") << none << usual;
        QTest::newRow("another one, as another user has") << usual << nowhere;
    }

    void itNeedsNoBus() {
        QFETCH(QString, firstBus);
        QFETCH(QString, secondBus);
        const QString variable = QStringLiteral("DBUS_SESSION_BUS_ADDRESS");
        e2e::Program first;
        first.setEnvironment(variable, firstBus);
        QVERIFY(e2e::startAndSettle(first));
        e2e::Program second;
        second.setEnvironment(variable, secondBus);
        const auto end = second.runToTheEnd();
        QCOMPARE(end.how, QByteArray("ended with 0"));
        QCOMPARE(end.errors, QByteArray());
        QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(first.pid()).id, patience);
    }

    void aFirstThatHangsIsNamed() {
        e2e::Program program;
        QVERIFY(e2e::startAndSettle(program));
        program.signal(SIGSTOP);
        QElapsedTimer wait;
        wait.start();
        const auto end = program.runToTheEnd();
        const qint64 waited = wait.elapsed(); // milliseconds, the start included
        program.signal(SIGCONT);
        QCOMPARE(end.how, QByteArray("ended with 1"));
        QCOMPARE(end.errors, QByteArray("VexaOrbilo: runs on this display already, but does not answer\n"));
        QVERIFY2(waited >= 2000, "one that is only busy is given two seconds");
        QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(program.pid()).id, patience); // it was asked all the same
    }

    void whenTheFirstHasEndedTheNextOneRuns() {
        {
            e2e::Program first;
            QVERIFY(first.start());
            QTRY_VERIFY_WITH_TIMEOUT(!e2e::windowsOf(first.pid()).isEmpty(), patience);
        }
        e2e::Program next;
        QVERIFY(next.start());
        QTRY_VERIFY_WITH_TIMEOUT(!e2e::windowsOf(next.pid()).isEmpty(), patience);
        QVERIFY(next.isRunning());
    }
};

VEXA_WIDGET_TEST_MAIN(SecondStartTest)
#include "SecondStartTest.moc"
