// SPDX-License-Identifier: MIT
#include <QProcess>
#include <QtTest>

class AbruptExitTest : public QObject {
    Q_OBJECT

private slots:
    void anExitLeavesWhatOtherThreadsUseAlone() {
        QProcess process;
        process.start(QStringLiteral(STATICS_IN_USE), QStringList());
        QVERIFY(process.waitForFinished(-1));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 1);
    }

    void anExitAfterwardsIsAnOrdinaryOne() {
        QProcess process;
        process.start(QStringLiteral(STATICS_IN_USE), {QStringLiteral("safe")});
        QVERIFY(process.waitForFinished(-1));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 3);
    }
};

QTEST_GUILESS_MAIN(AbruptExitTest)
#include "AbruptExitTest.moc"
