// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Pen.h"
#include "e2e/Program.h"
#include "support/TestMain.h"

namespace {

constexpr int patience = 20000; // milliseconds
constexpr int escapeKey = 9;
const QSize guideSize(494, 300);

} // namespace

/// Starting the program while it runs.
class SecondStartTest : public QObject {
    Q_OBJECT

private slots:
    void theFirstShowsItsPanelAndTheSecondEndsWithZero();
    void itEndsWithoutAWord();
    void itIsHeardWhileTheFirstIsStillStarting();
    void duringTheGuideItIsRemembered();
    void withoutABusTheProgramSimplyRuns();
    void whenTheFirstHasEndedTheNextOneRuns();
};

void SecondStartTest::theFirstShowsItsPanelAndTheSecondEndsWithZero() {
    e2e::Program program;
    QVERIFY(program.start());
    QTRY_VERIFY_WITH_TIMEOUT(e2e::hasWithdrawn(program.pid()), patience);
    QVERIFY(!e2e::panelOf(program.pid()).id);
    const auto end = program.runToTheEnd();
    QVERIFY(end.normal);
    QCOMPARE(end.code, 0);
    QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(program.pid()).id, patience);
    QVERIFY(program.isRunning());
}

void SecondStartTest::itEndsWithoutAWord() {
    e2e::Program program;
    QVERIFY(program.start());
    QTRY_VERIFY_WITH_TIMEOUT(!e2e::windowsOf(program.pid()).isEmpty(), patience);
    QCOMPARE(program.runToTheEnd().errors, QByteArray());
}

void SecondStartTest::itIsHeardWhileTheFirstIsStillStarting() {
    e2e::Program program;
    QVERIFY(program.start());
    QTRY_VERIFY_WITH_TIMEOUT(!e2e::windowsOf(program.pid()).isEmpty(), patience);
    QCOMPARE(program.runToTheEnd().code, 0);
    QTRY_VERIFY_WITH_TIMEOUT(e2e::hasWithdrawn(program.pid()), patience);
    QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(program.pid()).id, patience);
}

void SecondStartTest::duringTheGuideItIsRemembered() {
    e2e::Program program({{QStringLiteral("ShowPrivacyWindow"), 1}});
    QVERIFY(program.start());
    QTRY_VERIFY_WITH_TIMEOUT(e2e::visibleWindowOfSize(program.pid(), guideSize).id, patience);
    QCOMPARE(program.runToTheEnd().code, 0);
    QVERIFY(e2e::visibleWindowOfSize(program.pid(), guideSize).id);

    const auto guideGoesOnEscape = [&] {
        e2e::typeKey(escapeKey);
        return !e2e::visibleWindowOfSize(program.pid(), guideSize).id;
    };
    QTRY_VERIFY_WITH_TIMEOUT(guideGoesOnEscape(), patience);
    // It has been asked for, so it is there again.
    QTRY_VERIFY_WITH_TIMEOUT(e2e::hasWithdrawn(program.pid()), patience);
    QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(program.pid()).id, patience);
}

void SecondStartTest::withoutABusTheProgramSimplyRuns() {
    e2e::Program first;
    first.unsetEnvironment(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    QVERIFY(first.start());
    QTRY_VERIFY_WITH_TIMEOUT(!e2e::windowsOf(first.pid()).isEmpty(), patience);
    e2e::Program second;
    second.setEnvironment(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("unix:path=/nowhere"));
    QVERIFY(second.start());
    QTRY_VERIFY_WITH_TIMEOUT(!e2e::windowsOf(second.pid()).isEmpty(), patience);
    QVERIFY(first.isRunning());
    QVERIFY(second.isRunning());
}

void SecondStartTest::whenTheFirstHasEndedTheNextOneRuns() {
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

VEXA_WIDGET_TEST_MAIN(SecondStartTest)
#include "SecondStartTest.moc"
