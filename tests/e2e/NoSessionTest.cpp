// SPDX-License-Identifier: MIT
#include "e2e/Program.h"

#include <QDir>
#include <QProcess>
#include <QtTest>
#include <memory>

/// Sessions in which the pen cannot be heard: one clear line, an end with 1, and neither a window nor a dump.
class NoSessionTest : public QObject {
    Q_OBJECT

private slots:
    void withoutADisplay_data();
    void withoutADisplay();
    void withoutAnExtensionOfTheServer_data();
    void withoutAnExtensionOfTheServer();

private:
    static void verifyRefusal(const e2e::Program &program, const QByteArray &line);
};

void NoSessionTest::verifyRefusal(const e2e::Program &program, const QByteArray &line) {
    const QStringList before = QDir(program.folder()).entryList(QDir::Files | QDir::Hidden);
    const auto end = program.runToTheEnd();
    QVERIFY(end.normal);
    QCOMPARE(end.code, 1);
    QCOMPARE(end.errors, line);
    QCOMPARE(QDir(program.folder()).entryList(QDir::Files | QDir::Hidden), before);
}

void NoSessionTest::withoutADisplay_data() {
    QTest::addColumn<QString>("display");
    QTest::newRow("not set") << QString();
    QTest::newRow("set to nothing") << QStringLiteral("");
    QTest::newRow("no server there") << QStringLiteral(":98765");
    QTest::newRow("no display at all") << QStringLiteral("nonsense");
}

void NoSessionTest::withoutADisplay() {
    QFETCH(QString, display);
    e2e::Program program;
    if (display.isNull())
        program.unsetEnvironment(QStringLiteral("DISPLAY"));
    else
        program.setEnvironment(QStringLiteral("DISPLAY"), display);
    verifyRefusal(program, "VexaOrbilo: cannot reach the X server of this session (DISPLAY)\n");
}

void NoSessionTest::withoutAnExtensionOfTheServer_data() {
    QTest::addColumn<QString>("extension");
    QTest::newRow("RECORD") << QStringLiteral("RECORD");
    // This server keeps the two together: without XTEST it has no RECORD either.
    QTest::newRow("XTEST") << QStringLiteral("XTEST");
}

void NoSessionTest::withoutAnExtensionOfTheServer() {
    QFETCH(QString, extension);
    QProcess server;
    server.start(QStringLiteral("Xvfb"),
                 {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                  QStringLiteral("0"), QStringLiteral("640x480x24"), QStringLiteral("-nolisten"),
                  QStringLiteral("tcp"), QStringLiteral("-noreset"), QStringLiteral("-extension"),
                  extension});
    QVERIFY(server.waitForReadyRead(60000));
    const QString number = QString::fromLatin1(server.readAllStandardOutput()).trimmed();

    e2e::Program program;
    program.setEnvironment(QStringLiteral("DISPLAY"), QLatin1Char(':') + number);
    verifyRefusal(program, "VexaOrbilo: the X server has no RECORD extension, so the pen cannot be heard\n");

    server.terminate();
    QVERIFY(server.waitForFinished(60000));
}

QTEST_GUILESS_MAIN(NoSessionTest)
#include "NoSessionTest.moc"
