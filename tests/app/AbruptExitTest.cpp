// SPDX-License-Identifier: MIT
#include <QProcess>
#include <QTest>

class AbruptExitTest : public QObject {
    Q_OBJECT

private slots:
    void endsOnTheSpotWhenItsWorkIsDone_data() {
        QTest::addColumn<QStringList>("way");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QByteArray>("work");
        const QByteArray newestFirst = "second first ";
        QTest::newRow("what other threads use is left alone") << QStringList() << 1 << newestFirst;
        QTest::newRow("also what the work uses") << QStringList{QStringLiteral("work")} << 1 << newestFirst;
        QTest::newRow("an exit afterwards is an ordinary one")
            << QStringList{QStringLiteral("safe")} << 3 << QByteArray();
    }

    void endsOnTheSpotWhenItsWorkIsDone() {
        QFETCH(QStringList, way);
        QFETCH(int, exitCode);
        QFETCH(QByteArray, work);
        QProcess process;
        process.start(QStringLiteral(STATICS_IN_USE), way);
        QVERIFY(process.waitForFinished(-1));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), exitCode);
        QCOMPARE(process.readAllStandardOutput(), work);
        QCOMPARE(process.readAllStandardError(), QByteArray()); // it had no display to lose
    }
};

QTEST_GUILESS_MAIN(AbruptExitTest)
#include "AbruptExitTest.moc"
