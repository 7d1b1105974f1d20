// SPDX-License-Identifier: MIT
#include "e2e/Program.h"
#include "e2e/XServer.h"
#include "support/Patience.h"

#include <QDir>
#include <QProcess>
#include <QTest>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace vexa::test;

namespace {

/// Starts a program of an ordinary user, since root may have all threads, who may have no further one.
class WithoutThreads : public QProcess {
protected:
    void setupChildProcess() override {
        const uid_t nobody = 65534;
        const rlimit itself{1, 1};
        if ((getuid() == 0 && setuid(nobody) != 0) || setrlimit(RLIMIT_NPROC, &itself) != 0)
            _exit(127);
    }
};

} // namespace

/// Sessions in which the pen cannot be heard: one clear line, an end with 1, and neither a window nor a dump.
class NoSessionTest : public QObject {
    Q_OBJECT

private slots:
    void withoutADisplay_data() {
        QTest::addColumn<QString>("display");
        QTest::newRow("not set") << QString();
        QTest::newRow("set to nothing") << QStringLiteral("");
        QTest::newRow("no server there") << QStringLiteral(":98765");
        QTest::newRow("no display at all") << QStringLiteral("nonsense");
    }

    void withoutADisplay() {
        QFETCH(QString, display);
        e2e::Program program;
        if (display.isNull())
            program.unsetEnvironment(QStringLiteral("DISPLAY"));
        else
            program.setEnvironment(QStringLiteral("DISPLAY"), display);
        verifyRefusal(program, "VexaOrbilo: cannot reach the X server of this session (DISPLAY)\n");
    }

    void withoutAnExtensionOfTheServer_data() {
        QTest::addColumn<QString>("extension");
        QTest::newRow("RECORD") << QStringLiteral("RECORD");
        // This server keeps the two together: without XTEST it has no RECORD either.
        QTest::newRow("XTEST") << QStringLiteral("XTEST");
    }

    void withoutAnExtensionOfTheServer() {
        QFETCH(QString, extension);
        const e2e::XServer server({QStringLiteral("-extension"), extension});
        QVERIFY(!server.display().isEmpty());
        e2e::Program program;
        program.setEnvironment(QStringLiteral("DISPLAY"), server.display());
        verifyRefusal(program,
                      "VexaOrbilo: the X server has no RECORD extension, so the pen cannot be heard\n");
    }

    void withTooFewDescriptors() {
        const e2e::Program program;
        QProcess limited;
        limited.start(QStringLiteral("/bin/sh"),
                      {QStringLiteral("-c"), QStringLiteral("ulimit -n 20; exec \"$0\""),
                       program.folder() + QStringLiteral("/VexaOrbilo")});
        QVERIFY2(limited.waitForFinished(patience), qPrintable(limited.errorString()));
        QCOMPARE(limited.readAllStandardError(),
                 QByteArray("VexaOrbilo: needs 32 open files, of which it may have 20 (ulimit -n)\n"));
        QCOMPARE(limited.exitStatus(), QProcess::NormalExit);
        QCOMPARE(limited.exitCode(), 1);
    }

    void withTooFewThreads() {
        const e2e::Program program;
        QCOMPARE(chmod(QFile::encodeName(program.folder()).constData(), 0755), 0);
        WithoutThreads limited;
        limited.start(program.folder() + QStringLiteral("/VexaOrbilo"), QStringList());
        QVERIFY2(limited.waitForFinished(patience), qPrintable(limited.errorString()));
        const QByteArray line = limited.readAllStandardError();
        QVERIFY2(line.endsWith(" threads, of which it may have 0 (ulimit -u)\n") && line.count('\n') == 1,
                 line.constData());
        QCOMPARE(limited.exitStatus(), QProcess::NormalExit);
        QCOMPARE(limited.exitCode(), 1);
    }

    void theListenersFailureEndsTheStart() {
        // One connection keeps the display, one serves the look at the session and after that the windows;
        // the listener finds none left.
        e2e::XServer server;
        QVERIFY(!server.display().isEmpty());
        server.leaveConnections(2);
        e2e::Program program;
        program.setEnvironment(QStringLiteral("DISPLAY"), server.display());
        const QByteArray settings = program.settingsFile();
        const auto end = program.runToTheEnd();
        QCOMPARE(end.how, QByteArray("ended with 1"));
        // The X library has its own word for each connection that it was refused; ours is one line and the
        // last.
        const QByteArray line = "VexaOrbilo: cannot listen to the keyboard and the pointer of this session\n";
        QVERIFY2(end.errors.endsWith(line), end.errors.constData());
        QCOMPARE(end.errors.count("VexaOrbilo"), 1);
        QCOMPARE(program.settingsFile(), settings); // which a main window would have saved
    }

private:
    static void verifyRefusal(const e2e::Program &program, const QByteArray &line) {
        const QStringList before = QDir(program.folder()).entryList(QDir::Files | QDir::Hidden);
        const auto end = program.runToTheEnd();
        QCOMPARE(end.how, QByteArray("ended with 1"));
        QCOMPARE(end.errors, line);
        QCOMPARE(QDir(program.folder()).entryList(QDir::Files | QDir::Hidden), before);
    }
};

QTEST_GUILESS_MAIN(NoSessionTest)
#include "NoSessionTest.moc"
