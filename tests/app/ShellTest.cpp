// SPDX-License-Identifier: MIT
#include "app/Shell.h"

#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <csignal>

using namespace std::chrono_literals;
using vexa::runInShell;

namespace {

bool isAlive(pid_t process) {
    return kill(process, 0) == 0;
}

/// The process whose number the command has written into a file.
pid_t processIn(const QString &name) {
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toInt() : 0;
}

} // namespace

class ShellTest : public QObject {
    Q_OBJECT

private slots:
    void theExitCodeDecides() {
        QVERIFY(runInShell(QStringLiteral("exit 0"), 60s));
        QVERIFY(!runInShell(QStringLiteral("exit 3"), 60s));
        QVERIFY(!runInShell(QStringLiteral("kill -KILL $$"), 60s));
        QVERIFY(runInShell(QStringLiteral("test 'a b' = \"a $(echo b)\""), 60s));
    }

    void aCommandThatIsNoneHasFailed() {
        QVERIFY(!runInShell(QStringLiteral("/nowhere/at/all 2>/dev/null"), 60s));
    }

    void eventsAreHandledMeanwhile() {
        QTemporaryDir folder;
        const QString flag = folder.filePath(QStringLiteral("go on"));
        // The command ends because an event is handled while it runs.
        QTimer::singleShot(0, this, [&flag] { QVERIFY(QFile(flag).open(QIODevice::WriteOnly)); });
        QVERIFY(runInShell(QStringLiteral("until [ -e '%1' ]; do sleep 0.01; done").arg(flag), 60s));
    }

    void theLimitEndsTheCommandAndWhatItHasStarted() {
        QTemporaryDir folder;
        const QString name = folder.filePath(QStringLiteral("child"));
        // The command itself ends with its last words: its child is what keeps it.
        QVERIFY(!runInShell(QStringLiteral("sleep 1000 & echo $! > '%1'; wait").arg(name), 300ms));
        const pid_t child = processIn(name);
        QVERIFY(child > 0);
        QTRY_VERIFY(!isAlive(child));
    }

    void aTerminalsInterruptIsTheProgramsAlone() {
        QTemporaryDir folder;
        const QString name = folder.filePath(QStringLiteral("group"));
        QVERIFY(runInShell(QStringLiteral("cut -d ' ' -f 5 /proc/$$/stat > '%1'").arg(name), 60s));
        QVERIFY(processIn(name) > 0);
        QVERIFY(processIn(name) != getpgrp());
    }

    void theProgramsEndEndsIt() {
        QTimer::singleShot(0, QCoreApplication::instance(), &QCoreApplication::quit);
        QVERIFY(!runInShell(QStringLiteral("sleep 1000"), 1000s)); // or the test would take its time
    }
};

QTEST_GUILESS_MAIN(ShellTest)
#include "ShellTest.moc"
