// SPDX-License-Identifier: MIT
#include "packaging/DesktopEntry.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// The two scripts that register the program with the session, run from folders with awkward names.
class AutoStartScriptsTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_root = std::make_unique<QTemporaryDir>();
        m_environment = QProcessEnvironment::systemEnvironment();
        m_environment.insert("XDG_CONFIG_HOME", path("config"));
        m_environment.insert("HOME", path("home"));
        installIn("bin");
    }

    void theEntryStartsTheProgram_data() {
        QTest::addColumn<QString>("folder");
        QTest::newRow("plain") << "bin";
        QTest::newRow("blanks") << " two  blanks ";
        QTest::newRow("double quotes") << "a \"quoted\" name";
        QTest::newRow("single quotes") << "presenter's";
        QTest::newRow("percent signs") << "100% %f %%u";
        QTest::newRow("backslashes") << "C:\\temp\\new\\\\s\\";
        QTest::newRow("dollar signs") << "$HOME ${HOME} $(id)";
        QTest::newRow("backquotes") << "`id`";
        QTest::newRow("equals sign") << "e=mc2";
        QTest::newRow("shell characters") << ";#&|<>*?~()!{}[]^";
        QTest::newRow("leading dash") << "-n";
        QTest::newRow("tab") << "a\tb";
        QTest::newRow("line ends") << "a\nb\r\n";
        QTest::newRow("Chinese") << "演示笔 翻頁筆";
        QTest::newRow("Greek and umlauts") << "Παρουσίαση Übung";
        QTest::newRow("right to left") << "عرض تقديمي";
        QTest::newRow("all at once") << "%\\\"$`'=\n\t 笔";
    }
    void theEntryStartsTheProgram() {
        QFETCH(QString, folder);
        installIn("programs/" + folder);
        QCOMPARE(run("setAutoStartOpen.sh"), 0);

        const DesktopEntry entry(entryFile());
        const QByteArray program = QFile::encodeName(m_folder + "/VexaOrbilo");
        QCOMPARE(entry.value("Type"), QByteArray("Application"));
        QCOMPARE(entry.value("Name"), QByteArray("Vexa Orbilo"));
        QCOMPARE(entry.value("TryExec"), program);
        const QByteArrayList words = entry.command();
        QVERIFY(!words.isEmpty());
        QVERIFY(!words.first().contains('=')); // sessions may take such a word for a variable, or refuse it
        QCOMPARE(words.last(), program);

        const QString launcher = QStandardPaths::findExecutable("gio");
        QVERIFY2(!launcher.isEmpty(), "gio (libglib2.0-bin) is needed");
        QStringList asWeReadIt;
        for (const QByteArray &word : words)
            asWeReadIt.append(QFile::decodeName(word));
        for (QStringList command : {asWeReadIt, {launcher, "launch", entryFile()}}) {
            QProcess session;
            session.setProcessEnvironment(m_environment);
            session.setProcessChannelMode(QProcess::ForwardedChannels);
            session.start(command.takeFirst(), command);
            QVERIFY(session.waitForFinished(-1));
            QCOMPARE(session.exitCode(), 0);
            QCOMPARE(startedProgram(), program);
            QVERIFY(QFile::remove(path("note")));
        }
    }

    void theEntryCanBeReadByAll() {
        QCOMPARE(run("setAutoStartOpen.sh"), 0);
        const QFile::Permissions readable = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
        QCOMPARE(QFile::permissions(entryFile()) & readable, readable);
    }

    void withoutAConfigurationFolderItGoesBelowHome_data() {
        QTest::addColumn<QString>("folder");
        QTest::newRow("none") << QString();
        QTest::newRow("a relative one") << "config";
    }
    void withoutAConfigurationFolderItGoesBelowHome() {
        QFETCH(QString, folder);
        m_environment.insert("XDG_CONFIG_HOME", folder);
        const QStringList without = folder.isNull() ? QStringList{"XDG_CONFIG_HOME"} : QStringList();
        const QString entry = path("home/.config/autostart/VexaOrbilo.desktop");
        QCOMPARE(run("setAutoStartOpen.sh", without), 0);
        QVERIFY(QFile::exists(entry));
        QVERIFY(!QFile::exists(entryFile()) && !QFile::exists(m_folder + "/config"));
        QCOMPARE(run("setAutoStartClose.sh", without), 0);
        QVERIFY(!QFile::exists(entry));
    }

    void theScriptFindsItsFolderFromARelativeCall() {
        QProcess process;
        m_environment.insert("CDPATH", path("."));
        process.setProcessEnvironment(m_environment);
        process.setWorkingDirectory(m_root->path());
        process.start("/bin/sh", {"bin/setAutoStartOpen.sh"});
        QVERIFY(process.waitForFinished(-1));
        QCOMPARE(process.exitCode(), 0);
        QCOMPARE(DesktopEntry(entryFile()).command(),
                 QByteArrayList{QFile::encodeName(m_folder + "/VexaOrbilo")});
    }

    void openingTwiceLeavesOneEntry() {
        QCOMPARE(run("setAutoStartOpen.sh"), 0);
        QCOMPARE(run("setAutoStartOpen.sh"), 0);
        QCOMPARE(
            QDir(path("config/autostart")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
            QStringList{"VexaOrbilo.desktop"});
    }

    void theOldEntryIsReplacedAndNotRewritten() {
        QVERIFY(QDir().mkpath(path("config/autostart")));
        QFile old(entryFile());
        QVERIFY(old.open(QIODevice::ReadWrite));
        old.write("an older entry");
        QVERIFY(old.flush());
        QCOMPARE(run("setAutoStartOpen.sh"), 0);
        QVERIFY(old.seek(0));
        QCOMPARE(old.readAll(), QByteArray("an older entry")); // who had it open still reads it whole
        QCOMPARE(DesktopEntry(entryFile()).value("Name"), QByteArray("Vexa Orbilo"));
    }

    void openingFailsWhereNoFolderCanBeMade() {
        QFile inTheWay(path("config"));
        QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        QVERIFY(run("setAutoStartOpen.sh") > 0);
    }

    void openingFailsWhereTheEntryCannotStand() {
        QVERIFY(QDir().mkpath(entryFile() + "/in the way"));
        QVERIFY(run("setAutoStartOpen.sh") > 0);
        QCOMPARE(
            QDir(path("config/autostart")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
            QStringList{"VexaOrbilo.desktop"}); // the draft is gone
    }

    void openingFailsWithoutAProgramBesideIt() {
        QVERIFY(QFile::remove(m_folder + "/VexaOrbilo"));
        QVERIFY(run("setAutoStartOpen.sh") > 0);
        QVERIFY(!QFile::exists(entryFile()));
    }

    void openingFailsWithoutAHome() {
        QVERIFY(run("setAutoStartOpen.sh", {"XDG_CONFIG_HOME", "HOME"}) > 0);
        QVERIFY(run("setAutoStartClose.sh", {"XDG_CONFIG_HOME", "HOME"}) > 0);
    }

    void closingRemovesTheEntry() {
        QCOMPARE(run("setAutoStartOpen.sh"), 0);
        QVERIFY(QFile::exists(entryFile()));
        QCOMPARE(run("setAutoStartClose.sh"), 0);
        QVERIFY(!QFile::exists(entryFile()));
    }

    void closingWithoutAnEntrySucceeds() { QCOMPARE(run("setAutoStartClose.sh"), 0); }

    void closingFailsWhereTheEntryCannotBeRemoved() {
        QVERIFY(QDir().mkpath(entryFile() + "/in the way"));
        QVERIFY(run("setAutoStartClose.sh") > 0);
    }

private:
    /// Puts the scripts and a stand-in program, which notes the name it was started by, into `folder`.
    void installIn(const QString &folder) {
        m_folder = path(folder);
        QVERIFY(QDir().mkpath(m_folder));
        for (const QString name : {"setAutoStartOpen.sh", "setAutoStartClose.sh"})
            QVERIFY(QFile::copy(QStringLiteral(SCRIPTS "/") + name, m_folder + '/' + name));
        QFile program(m_folder + "/VexaOrbilo");
        QVERIFY(program.open(QIODevice::WriteOnly));
        program.write("#!/bin/sh\nprintf %s \"$0\" >\"$NOTE.part\" && mv \"$NOTE.part\" \"$NOTE\"\n");
        program.close();
        QVERIFY(program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        m_environment.insert("NOTE", path("note"));
    }

    int run(const QString &script, const QStringList &without = {}) {
        QProcess process;
        QProcessEnvironment environment = m_environment;
        for (const QString &name : without)
            environment.remove(name);
        process.setProcessEnvironment(environment);
        process.start(m_folder + '/' + script, QStringList());
        return process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit
                   ? process.exitCode()
                   : -1;
    }

    QString path(const QString &name) const { return m_root->filePath(name); }
    QString entryFile() const { return path("config/autostart/VexaOrbilo.desktop"); }
    /// The name that the stand-in noted, once it has run.
    QByteArray startedProgram() {
        if (!QTest::qWaitFor([this] { return QFile::exists(path("note")); }, 30000))
            return {};
        QFile note(path("note"));
        return note.open(QIODevice::ReadOnly) ? note.readAll() : QByteArray();
    }

    std::unique_ptr<QTemporaryDir> m_root;
    QString m_folder;
    QProcessEnvironment m_environment;
};

QTEST_GUILESS_MAIN(AutoStartScriptsTest)
#include "AutoStartScriptsTest.moc"
