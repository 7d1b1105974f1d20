// SPDX-License-Identifier: MIT
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <cstdlib>

/// The command that registers the start at login, as the system's shell understands it.
class AutoStartTest : public QObject {
    Q_OBJECT

private slots:
    void runsTheScriptsBesideTheProgram_data() {
        QTest::addColumn<QString>("folder");
        QTest::newRow("plain") << QStringLiteral("program");
        QTest::newRow("blanks") << QStringLiteral("my  programs here");
        QTest::newRow("quotes") << QStringLiteral("it's a \"program\"");
        QTest::newRow("shell") << QStringLiteral("$(touch oops) `touch oops`; touch oops & $HOME \\ *");
        QTest::newRow("Chinese") << QStringLiteral("程序");
    }

    void runsTheScriptsBesideTheProgram() {
        QFETCH(QString, folder);
        const QTemporaryDir outside;
        const QDir place(outside.path() + '/' + folder);
        QVERIFY(place.mkpath(QStringLiteral(".")));
        const QString program = place.filePath(QStringLiteral("program"));
        QVERIFY(QFile::copy(QStringLiteral(AUTO_START_COMMAND), program));
        for (const char *name : {"setAutoStartOpen.sh", "setAutoStartClose.sh"}) {
            QFile script(place.filePath(QLatin1String(name)));
            QVERIFY(script.open(QIODevice::WriteOnly));
            script.write("#!/bin/sh\ntouch \"$0.ran\"\nexit 7\n");
            QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        }

        QProcess process;
        process.start(program, QStringList());
        QVERIFY(process.waitForFinished());
        const QList<QByteArray> commands = process.readAllStandardOutput().split('\n');
        QCOMPARE(commands.size(), 3);

        QVERIFY(QDir::setCurrent(outside.path()));
        QCOMPARE(WEXITSTATUS(std::system(commands.at(0).constData())), 7);
        QVERIFY(place.exists(QStringLiteral("setAutoStartOpen.sh.ran")));
        QVERIFY(!place.exists(QStringLiteral("setAutoStartClose.sh.ran")));
        QCOMPARE(WEXITSTATUS(std::system(commands.at(1).constData())), 7);
        QVERIFY(place.exists(QStringLiteral("setAutoStartClose.sh.ran")));
        QVERIFY(!QFile::exists(outside.filePath(QStringLiteral("oops"))));
    }
};

QTEST_GUILESS_MAIN(AutoStartTest)
#include "AutoStartTest.moc"
