// SPDX-License-Identifier: MIT
#include "support/Disk.h"
#include "support/UserFile.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace vexa::test;

namespace {

/// A process without the rights of the administrator, who may write everything.
class PlainUserProcess : public QProcess {
protected:
    void setupChildProcess() override {
        constexpr unsigned nobody = 65534;
        if (geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0))
            _exit(99);
    }
};

} // namespace

/// Saves of a process of its own: killed in the middle, or without the right to write.
class SettingsKillTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        m_saver = m_folder->filePath(QStringLiteral("settings-saver"));
        QVERIFY(QFile::copy(QStringLiteral(SETTINGS_SAVER), m_saver));
        protect(m_saver, 0755);
        protect(m_folder->path(), 0777);
    }

    void aKillLeavesTheOldOrTheNewContent() {
        for (int kill = 0; kill < 100; ++kill) {
            QProcess saver;
            saver.start(m_saver, QStringList());
            QByteArray dots; // the next save is under way when one of them comes
            for (; dots.size() <= kill % 10; dots += saver.readAllStandardOutput())
                QVERIFY(saver.waitForReadyRead(-1));
            saver.kill();
            QVERIFY(saver.waitForFinished(-1));
            QCOMPARE(saver.exitStatus(), QProcess::CrashExit);

            const QByteArray left = content();
            const int mark = left.mid(left.indexOf("<Key2P>") + 7, 6).toInt();
            QVERIFY2(mark >= 100000 + dots.size() - 1, "a save that was told of is lost");
            QCOMPARE(left, savedFile([mark](const StoredSetting &setting) {
                         const bool marked =
                             QList<QByteArray>{"Key2P", "SportLightSize", "ShowPrivacyWindow"}.contains(
                                 setting.element);
                         return marked ? mark : setting.atStart;
                     }));
        }
    }

    void aFileThatIsNotWritableIsLeftAlone() {
        write("<mine/>");
        protect(file(), 0444);
        saveAsPlainUser();
        QCOMPARE(content(), QByteArray("<mine/>"));
    }

    void aFolderThatIsNotWritableIsNoReasonToComplain() {
        protect(m_folder->path(), 0555);
        saveAsPlainUser();
        QVERIFY(!QFile::exists(file()));
    }

    void aWritableFileInAClosedFolderIsSavedEvenIfItIsBad() {
        for (const char *before : {"<mine/>", "broken"}) {
            write(before);
            protect(file(), 0666);
            protect(m_folder->path(), 0555);
            saveAsPlainUser();
            QVERIFY(content().contains("<Key2P>100002</Key2P>"));
            QVERIFY(content().endsWith("</PenSetting>\n"));
            QVERIFY(!QFile::exists(file() + QStringLiteral(".bad")));
        }
    }

    void aFullDiskLeavesTheOldContent_data() {
        QTest::addColumn<int>("space");
        QTest::newRow("no space") << 0;
        QTest::newRow("too little space") << 512;
    }

    void aFullDiskLeavesTheOldContent() {
        QFETCH(int, space);
        const QByteArray mine = "<PenSetting><Setting><Key2P>4</Key2P></Setting></PenSetting>";
        write(mine);
        protect(file(), 0666);
        {
            const disk::Full full(space); // the saver inherits it
            saveAsPlainUser();
        }
        QCOMPARE(content(), mine);
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden).size(), 2); // the saver's too
    }

private:
    QString file() const { return m_folder->filePath(QStringLiteral("VexaPenSetting.xml")); }

    QByteArray content() const { return userfile::read(file()); }
    void write(const QByteArray &bytes) const { QVERIFY(userfile::write(bytes, file())); }

    void protect(const QString &path, int mode) const {
        QCOMPARE(chmod(QFile::encodeName(path).constData(), static_cast<mode_t>(mode)), 0);
    }

    void saveAsPlainUser() const {
        PlainUserProcess saver;
        saver.start(m_saver, {QStringLiteral("3")});
        QVERIFY(saver.waitForFinished(-1));
        QCOMPARE(saver.exitStatus(), QProcess::NormalExit);
        QCOMPARE(saver.exitCode(), 0);
        QCOMPARE(saver.readAllStandardError(), QByteArray());
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_saver;
};

QTEST_GUILESS_MAIN(SettingsKillTest)
#include "SettingsKillTest.moc"
