// SPDX-License-Identifier: MIT
#include "support/UserFile.h"

#include <QTest>

using namespace vexa::test;

using Store = ZrToolXmlClass;

namespace {

/// The values of the built-in file, and the guide's flag as a process starts with it.
const QByteArray afterFirstRead = savedFile([](const StoredSetting &setting) { return setting.shipped; });

} // namespace

/// What a save leaves on the disk, to the byte.
class SettingsWriteTest : public QObject {
    Q_OBJECT

private slots:
    void init() { userfile::startAfresh(); }
    void cleanup() { userfile::clear(); }

    void aSaveAfterTheFirstReadHasExactlyTheseBytes() {
        Store::ZrXmlRead();
        Store::ZrXmlWrite();
        QCOMPARE(userfile::read(), afterFirstRead);
    }

    void negativeAndLargeValuesAreWrittenAsTheyAre() {
        Store::Key2P = -2147483647 - 1;
        Store::Key3P = 2147483647;
        Store::ZrXmlWrite();
        QVERIFY(userfile::read().contains(
            "        <Key2P>-2147483648</Key2P>\n        <Key3P>2147483647</Key3P>\n"));
    }

    void whatWasSavedIsReadBack() {
        Store::ZrXmlRead();
        Store::ZrXmlWrite();
        userfile::forgetSettings();
        Store::ShowPrivacyWindow = 5;
        Store::ZrXmlRead();
        Store::ZrXmlWrite();
        QCOMPARE(userfile::read(), afterFirstRead);

        // Every one of them is told apart from the others.
        for (const StoredSetting &setting : storedSettings)
            *setting.value = 1000 + int(&setting - storedSettings);
        Store::ZrXmlWrite();
        userfile::forgetSettings();
        Store::ZrXmlRead();
        for (const StoredSetting &setting : storedSettings)
            QCOMPARE(*setting.value, 1000 + int(&setting - storedSettings));
    }

    void elementsThatAreNoSettingsVanish() {
        QFile builtIn(QStringLiteral(":/VexaPenSetting.xml"));
        QVERIFY(builtIn.open(QIODevice::ReadOnly));
        QVERIFY(userfile::write(builtIn.readAll()));
        Store::ZrXmlRead();
        Store::ZrXmlWrite();
        QCOMPARE(userfile::read(), afterFirstRead);
        QVERIFY(!QFileInfo::exists(userfile::badPath()));
    }

    void firstRunIsAlwaysWrittenAsOne() {
        QVERIFY(
            userfile::write("<PenSetting FirstRun=\"0\"><Setting><Key2P>2</Key2P></Setting></PenSetting>"));
        Store::ZrXmlRead();
        QCOMPARE(Store::ifirstRun, false);
        Store::ZrXmlWrite();
        QVERIFY(userfile::read().contains("\n<PenSetting FirstRun=\"1\">\n"));
        QCOMPARE(Store::ifirstRun, false);
    }

    void aSaveReplacesALongerFileWhole() {
        QVERIFY(userfile::write("<a>" + QByteArray(100000, ' ') + "</a>"));
        Store::ZrXmlRead();
        Store::ZrXmlWrite();
        QVERIFY(userfile::read().endsWith("    </Setting>\n</PenSetting>\n"));
        QVERIFY(userfile::read().size() < 1000);
    }

    void aSaveThatChangesNothingLeavesTheFileAlone() {
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

    void aLinkStaysALink() {
        const QString target = QCoreApplication::applicationDirPath() + QStringLiteral("/elsewhere.xml");
        QFile::remove(target);
        QVERIFY(QFile::link(target, userfile::path()));
        Store::ZrXmlRead();
        Store::ZrXmlWrite();
        QVERIFY(QFileInfo(userfile::path()).isSymLink());
        QCOMPARE(userfile::read(target), afterFirstRead);
        QVERIFY(QFile::remove(target));
    }

    void nothingElseIsLeftInTheFolder() {
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

    void permissionsOfTheFileStay() {
        const auto ownersOnly = QFile::ReadOwner | QFile::WriteOwner;
        QVERIFY(userfile::write("<a/>"));
        QVERIFY(QFile::setPermissions(userfile::path(), ownersOnly));
        Store::ZrXmlWrite();
        const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        QVERIFY(!(QFile::permissions(userfile::path()) & others));
    }
};

QTEST_GUILESS_MAIN(SettingsWriteTest)
#include "SettingsWriteTest.moc"
