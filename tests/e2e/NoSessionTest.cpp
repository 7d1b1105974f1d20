// SPDX-License-Identifier: MIT
#include "e2e/Program.h"
#include "e2e/XServer.h"

#include <QDir>
#include <QtTest>

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
    const e2e::XServer server({QStringLiteral("-extension"), extension});
    QVERIFY(!server.display().isEmpty());
    e2e::Program program;
    program.setEnvironment(QStringLiteral("DISPLAY"), server.display());
    verifyRefusal(program, "VexaOrbilo: the X server has no RECORD extension, so the pen cannot be heard\n");
}

QTEST_GUILESS_MAIN(NoSessionTest)
#include "NoSessionTest.moc"
