// SPDX-License-Identifier: MIT
#include "support/Disk.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

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
    void init();
    void aKillLeavesTheOldOrTheNewContent();
    void aFileThatIsNotWritableIsLeftAlone();
    void aFolderThatIsNotWritableIsNoReasonToComplain();
    void aWritableFileInAClosedFolderIsSaved();
    void aBadFileThatCannotBeKeptIsOverwrittenAllTheSame();
    void aFullDiskLeavesTheOldContent_data();
    void aFullDiskLeavesTheOldContent();

private:
    QString file() const { return m_folder->filePath(QStringLiteral("VexaPenSetting.xml")); }
    QByteArray content() const;
    void write(const QByteArray &bytes) const;
    void protect(const QString &path, int mode) const;
    void saveAsPlainUser() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_saver;
};

void SettingsKillTest::init() {
    m_folder = std::make_unique<QTemporaryDir>();
    m_saver = m_folder->filePath(QStringLiteral("settings-saver"));
    QVERIFY(QFile::copy(QStringLiteral(SETTINGS_SAVER), m_saver));
    protect(m_saver, 0755);
    protect(m_folder->path(), 0777);
}

QByteArray SettingsKillTest::content() const {
    QFile present(file());
    return present.open(QIODevice::ReadOnly) ? present.readAll() : QByteArray();
}

void SettingsKillTest::write(const QByteArray &bytes) const {
    QFile present(file());
    QVERIFY(present.open(QIODevice::WriteOnly));
    QCOMPARE(present.write(bytes), bytes.size());
}

void SettingsKillTest::protect(const QString &path, int mode) const {
    QCOMPARE(chmod(QFile::encodeName(path).constData(), static_cast<mode_t>(mode)), 0);
}

void SettingsKillTest::saveAsPlainUser() const {
    PlainUserProcess saver;
    saver.start(m_saver, {QStringLiteral("3")});
    QVERIFY(saver.waitForFinished(-1));
    QCOMPARE(saver.exitStatus(), QProcess::NormalExit);
    QCOMPARE(saver.exitCode(), 0);
    QCOMPARE(saver.readAllStandardError(), QByteArray());
}

void SettingsKillTest::aKillLeavesTheOldOrTheNewContent() {
    const QRegularExpression whole(QRegularExpression::anchoredPattern(QStringLiteral(
        "<\\?xml version=\"1\\.0\" encoding=\"UTF-8\"\\?>\n<PenSetting FirstRun=\"1\">\n    <Setting>\n"
        "        <Key2P>(\\d+)</Key2P>\n(?:        <(\\w+)>\\d+</\\2>\n){5}"
        "        <SportLightSize>\\1</SportLightSize>\n(?:        <(\\w+)>\\d+</\\3>\n){9}"
        "        <ShowPrivacyWindow>\\1</ShowPrivacyWindow>\n    </Setting>\n</PenSetting>\n")));
    QVERIFY(whole.isValid());

    QSet<QString> marks;
    for (int kill = 0; kill < 200; ++kill) {
        QProcess saver;
        saver.start(m_saver, QStringList());
        QVERIFY(saver.waitForReadyRead(-1));
        QThread::usleep(QRandomGenerator::global()->bounded(30000U));
        saver.kill();
        QVERIFY(saver.waitForFinished(-1));
        QCOMPARE(saver.exitStatus(), QProcess::CrashExit);

        const auto match = whole.match(QString::fromUtf8(content()));
        QVERIFY2(match.hasMatch(), content().constData());
        marks.insert(match.captured(1));
    }
    QVERIFY2(marks.size() > 1, "the kills all met the same save");
}

void SettingsKillTest::aFileThatIsNotWritableIsLeftAlone() {
    write("<mine/>");
    protect(file(), 0444);
    saveAsPlainUser();
    QCOMPARE(content(), QByteArray("<mine/>"));
}

void SettingsKillTest::aFolderThatIsNotWritableIsNoReasonToComplain() {
    protect(m_folder->path(), 0555);
    saveAsPlainUser();
    QVERIFY(!QFile::exists(file()));
}

void SettingsKillTest::aWritableFileInAClosedFolderIsSaved() {
    write("<mine/>");
    protect(file(), 0666);
    protect(m_folder->path(), 0555);
    saveAsPlainUser();
    QVERIFY(content().contains("<Key2P>100002</Key2P>"));
    QVERIFY(content().endsWith("</PenSetting>\n"));
}

void SettingsKillTest::aBadFileThatCannotBeKeptIsOverwrittenAllTheSame() {
    write("broken");
    protect(file(), 0666);
    protect(m_folder->path(), 0555);
    saveAsPlainUser();
    QVERIFY(content().contains("<Key2P>100002</Key2P>"));
    QVERIFY(content().endsWith("</PenSetting>\n"));
    protect(m_folder->path(), 0777);
    QVERIFY(!QFile::exists(file() + QStringLiteral(".bad")));
}

void SettingsKillTest::aFullDiskLeavesTheOldContent_data() {
    QTest::addColumn<int>("space");
    QTest::newRow("no space") << 0;
    QTest::newRow("too little space") << 512;
}

void SettingsKillTest::aFullDiskLeavesTheOldContent() {
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

QTEST_GUILESS_MAIN(SettingsKillTest)
#include "SettingsKillTest.moc"
