// SPDX-License-Identifier: MIT
#include "app/TerminationSignals.h"

#include <QSignalSpy>
#include <QTest>

#include <csignal>

namespace {

using Handler = void (*)(int);

Handler currentHandler(int number) {
    struct sigaction action {};
    sigaction(number, nullptr, &action);
    return action.sa_handler;
}

} // namespace

class TerminationSignalsTest : public QObject {
    Q_OBJECT

private slots:
    void reachTheEventLoop_data() {
        QTest::addColumn<int>("number");
        QTest::newRow("SIGTERM") << SIGTERM;
        QTest::newRow("SIGINT") << SIGINT;
        QTest::newRow("SIGHUP") << SIGHUP;
    }

    void reachTheEventLoop() {
        QFETCH(int, number);
        const vexa::TerminationSignals watched;
        QSignalSpy arrived(&watched, &vexa::TerminationSignals::arrived);
        std::raise(number);
        QVERIFY(arrived.wait());
        QCOMPARE(arrived.count(), 1);
    }

    void manyAtOnceAreOneOrMore() {
        const vexa::TerminationSignals watched;
        QSignalSpy arrived(&watched, &vexa::TerminationSignals::arrived);
        // More than a pipe holds: the handler must not wait for a reader.
        for (int i = 0; i < 100000; ++i)
            std::raise(SIGTERM);
        QVERIFY(arrived.wait());
        QVERIFY(arrived.count() >= 1);
    }

    void ignoredOnesStayIgnored() {
        std::signal(SIGHUP, SIG_IGN);
        {
            const vexa::TerminationSignals watched;
            QSignalSpy arrived(&watched, &vexa::TerminationSignals::arrived);
            QVERIFY(currentHandler(SIGHUP) == SIG_IGN);
            std::raise(SIGHUP);
            std::raise(SIGTERM);
            QVERIFY(arrived.wait());
            QCOMPARE(arrived.count(), 1);
        }
        QVERIFY(currentHandler(SIGHUP) == SIG_IGN);
        std::signal(SIGHUP, SIG_DFL);
    }

    void theEarlierEffectComesBack() {
        const Handler before = currentHandler(SIGTERM);
        {
            const vexa::TerminationSignals watched;
            QVERIFY(currentHandler(SIGTERM) != before);
        }
        QVERIFY(currentHandler(SIGTERM) == before);
    }

    void canBeWatchedAgain() {
        for (int i = 0; i < 3; ++i) {
            const vexa::TerminationSignals watched;
            QSignalSpy arrived(&watched, &vexa::TerminationSignals::arrived);
            std::raise(SIGINT);
            QVERIFY(arrived.wait());
        }
    }
};

QTEST_GUILESS_MAIN(TerminationSignalsTest)
#include "TerminationSignalsTest.moc"
