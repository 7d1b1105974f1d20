// SPDX-License-Identifier: MIT
#include "support/UserFile.h"

#include <QtTest>

using namespace vexa::test;

using Store = ZrToolXmlClass;

/// What a save leaves on the disk, to the byte.
class SettingsWriteTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { userfile::clear(); }

    void aSaveAfterTheFirstReadHasExactlyTheseBytes();
    void negativeAndLargeValuesAreWrittenAsTheyAre();
    void whatWasSavedIsReadBack();
    void elementsThatAreNoSettingsVanish();
    void firstRunIsAlwaysWrittenAsOne();
    void aSaveReplacesALongerFileWhole();
    void aSaveThatChangesNothingLeavesTheFileAlone();
    void aLinkStaysALink();
    void nothingElseIsLeftInTheFolder();
    void permissionsOfTheFileStay();
};

namespace {

// The values of the built-in file, and the guide's flag as a process starts with it.
const QByteArray afterFirstRead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                  "<PenSetting FirstRun=\"1\">\n"
                                  "    <Setting>\n"
                                  "        <Key2P>1</Key2P>\n"
                                  "        <Key3P>3</Key3P>\n"
                                  "        <PenColor0>2</PenColor0>\n"
                                  "        <PenColor1>1</PenColor1>\n"
                                  "        <PenColor2>0</PenColor2>\n"
                                  "        <PenThickness>1</PenThickness>\n"
                                  "        <SportLightSize>183</SportLightSize>\n"
                                  "        <SportLightTran>132</SportLightTran>\n"
                                  "        <MagnifierSize>177</MagnifierSize>\n"
                                  "        <MagnifierColor>890</MagnifierColor>\n"
                                  "        <LaserPenSize>13</LaserPenSize>\n"
                                  "        <LaserPenColor>22</LaserPenColor>\n"
                                  "        <Key4C>4</Key4C>\n"
                                  "        <Key4P>0</Key4P>\n"
                                  "        <AutoStart>1</AutoStart>\n"
                                  "        <Language>0</Language>\n"
                                  "        <ShowPrivacyWindow>1</ShowPrivacyWindow>\n"
                                  "    </Setting>\n"
                                  "</PenSetting>\n";

} // namespace

void SettingsWriteTest::init() {
    userfile::clear();
    userfile::forgetSettings();
}

void SettingsWriteTest::aSaveAfterTheFirstReadHasExactlyTheseBytes() {
    Store::ZrXmlRead();
    Store::ZrXmlWrite();
    QCOMPARE(userfile::read(), afterFirstRead);
}

void SettingsWriteTest::negativeAndLargeValuesAreWrittenAsTheyAre() {
    Store::Key2P = -2147483647 - 1;
    Store::Key3P = 2147483647;
    Store::ZrXmlWrite();
    QVERIFY(
        userfile::read().contains("        <Key2P>-2147483648</Key2P>\n        <Key3P>2147483647</Key3P>\n"));
}

void SettingsWriteTest::whatWasSavedIsReadBack() {
    Store::ZrXmlRead();
    Store::ZrXmlWrite();
    userfile::forgetSettings();
    Store::ShowPrivacyWindow = 5;
    Store::ZrXmlRead();
    Store::ZrXmlWrite();
    QCOMPARE(userfile::read(), afterFirstRead);

    // Every one of them is told apart from the others.
    const QVector<std::int32_t *> members{&Store::Key2P,
                                          &Store::Key3P,
                                          &Store::Key4C,
                                          &Store::Key4P,
                                          &Store::PenColor0,
                                          &Store::PenColor1,
                                          &Store::PenColor2,
                                          &Store::PenThickness,
                                          &Store::LaserPenSize,
                                          &Store::LaserPenColor,
                                          &Store::MagnifierSize,
                                          &Store::MagnifierColor,
                                          &Store::SportLightSize,
                                          &Store::SportLightTran,
                                          &Store::AutoStart,
                                          &Store::Language,
                                          &Store::ShowPrivacyWindow};
    QCOMPARE(members.size(), 17);
    for (int i = 0; i < members.size(); ++i)
        *members[i] = 1000 + i;
    Store::ZrXmlWrite();
    userfile::forgetSettings();
    Store::ZrXmlRead();
    for (int i = 0; i < members.size(); ++i)
        QCOMPARE(*members[i], 1000 + i);
}

void SettingsWriteTest::elementsThatAreNoSettingsVanish() {
    QFile builtIn(QStringLiteral(":/VexaPenSetting.xml"));
    QVERIFY(builtIn.open(QIODevice::ReadOnly));
    QVERIFY(userfile::write(builtIn.readAll()));
    Store::ZrXmlRead();
    Store::ZrXmlWrite();
    QCOMPARE(userfile::read(), afterFirstRead);
    QVERIFY(!QFileInfo::exists(userfile::badPath()));
}

void SettingsWriteTest::firstRunIsAlwaysWrittenAsOne() {
    QVERIFY(userfile::write("<PenSetting FirstRun=\"0\"><Setting><Key2P>2</Key2P></Setting></PenSetting>"));
    Store::ZrXmlRead();
    QCOMPARE(Store::ifirstRun, false);
    Store::ZrXmlWrite();
    QVERIFY(userfile::read().contains("\n<PenSetting FirstRun=\"1\">\n"));
    QCOMPARE(Store::ifirstRun, false);
}

void SettingsWriteTest::aSaveReplacesALongerFileWhole() {
    QVERIFY(userfile::write("<a>" + QByteArray(100000, ' ') + "</a>"));
    Store::ZrXmlRead();
    Store::ZrXmlWrite();
    QVERIFY(userfile::read().endsWith("    </Setting>\n</PenSetting>\n"));
    QVERIFY(userfile::read().size() < 1000);
}

void SettingsWriteTest::aSaveThatChangesNothingLeavesTheFileAlone() {
    Store::ZrXmlRead();
    Store::ZrXmlWrite();
    const QDateTime longAgo(QDate(2001, 2, 3), QTime(4, 5, 6));
    QFile file(userfile::path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(longAgo, QFileDevice::FileModificationTime));
    file.close();

    Store::ZrXmlWrite();
    QCOMPARE(QFileInfo(userfile::path()).lastModified(), longAgo);

    QVERIFY(QFile::remove(userfile::path()));
    Store::ZrXmlWrite();
    QCOMPARE(userfile::read(), afterFirstRead);
}

void SettingsWriteTest::aLinkStaysALink() {
    const QString target = QCoreApplication::applicationDirPath() + QStringLiteral("/elsewhere.xml");
    QFile::remove(target);
    QVERIFY(QFile::link(target, userfile::path()));
    Store::ZrXmlRead();
    Store::ZrXmlWrite();
    QVERIFY(QFileInfo(userfile::path()).isSymLink());
    QCOMPARE(userfile::read(target), afterFirstRead);
    QVERIFY(QFile::remove(target));
}

void SettingsWriteTest::nothingElseIsLeftInTheFolder() {
    const QDir folder(QCoreApplication::applicationDirPath());
    const QStringList before = folder.entryList(QDir::AllEntries | QDir::Hidden);
    for (int i = 0; i < 20; ++i) {
        Store::LaserPenSize = i;
        Store::ZrXmlWrite();
    }
    QStringList after = folder.entryList(QDir::AllEntries | QDir::Hidden);
    QVERIFY(after.removeOne(QStringLiteral("VexaPenSetting.xml")));
    QCOMPARE(after, before);
}

void SettingsWriteTest::permissionsOfTheFileStay() {
    const auto ownersOnly = QFile::ReadOwner | QFile::WriteOwner;
    QVERIFY(userfile::write("<a/>"));
    QVERIFY(QFile::setPermissions(userfile::path(), ownersOnly));
    Store::ZrXmlWrite();
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QVERIFY(!(QFile::permissions(userfile::path()) & others));
}

QTEST_GUILESS_MAIN(SettingsWriteTest)
#include "SettingsWriteTest.moc"
