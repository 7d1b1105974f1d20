// SPDX-License-Identifier: MIT
#include <QProcess>
#include <QTest>

class TerminateHandlerTest : public QObject {
    Q_OBJECT

private slots:
    void saysOneLineAndEndsWithOne_data() {
        QTest::addColumn<QString>("way");
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("an exception with a text") << "text" << QByteArray("VexaOrbilo: the cause in words\n");
        QTest::newRow("a listener that broke its promise")
            << "promise"
            << QByteArray("VexaOrbilo: cannot listen to the keyboard and the pointer of this session\n");
        QTest::newRow("an exception without a text")
            << "number" << QByteArray("VexaOrbilo: ended by an unknown failure\n");
        QTest::newRow("no exception at all") << "thread" << QByteArray("VexaOrbilo: ended unexpectedly\n");
    }

    void saysOneLineAndEndsWithOne() {
        QFETCH(QString, way);
        QFETCH(QByteArray, line);
        QProcess process;
        process.start(QStringLiteral(UNCAUGHT), {way});
        QVERIFY(process.waitForFinished(-1));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 1);
        QCOMPARE(process.readAllStandardError(), line);
    }

    void isSilentWhenNothingWentWrong() {
        QProcess process;
        process.start(QStringLiteral(UNCAUGHT), {QStringLiteral("not at all")});
        QVERIFY(process.waitForFinished(-1));
        QCOMPARE(process.exitCode(), 0);
        QCOMPARE(process.readAllStandardError(), QByteArray());
    }
};

QTEST_GUILESS_MAIN(TerminateHandlerTest)
#include "TerminateHandlerTest.moc"
