// SPDX-License-Identifier: MIT
#include "support/UserFile.h"

#include <QTest>

using namespace vexa::test;

using Store = ZrToolXmlClass;

/// Two processes of one user share the settings file: a save changes what was changed, and keeps what the
/// other one has written. The other one is played by the test.
class SettingsSharedTest : public QObject {
    Q_OBJECT

private slots:
    void init() { userfile::startAfresh(); }
    void cleanup() { userfile::clear(); }

    // Has to be the first one: nothing was read or written yet.
    void theFirstSaveOfAllWritesEverything() {
        QVERIFY(userfile::write("<a><b><Key2P>4</Key2P><Language>1</Language></b></a>"));
        Store::ZrXmlWrite();
        QVERIFY(fileSays("Key2P", 1) && fileSays("Language", 2));
    }

    void aSaveKeepsWhatTheOtherHasWritten() {
        Store::ZrXmlRead();
        Store::ZrXmlWrite();
        QVERIFY(otherWrites("<Language>1</Language><LaserPenSize>77</LaserPenSize>"));
        Store::Key2P = 2;
        Store::ZrXmlWrite();
        QVERIFY(fileSays("Key2P", 2) && fileSays("Language", 1) && fileSays("LaserPenSize", 77));
        Store::Key3P = 0;
        Store::ZrXmlWrite();
        QVERIFY(fileSays("Key2P", 2) && fileSays("Key3P", 0) && fileSays("Language", 1));
        QCOMPARE(Store::Language, 0); // until the file is read again
        Store::ZrXmlRead();
        QCOMPARE(Store::Language, 1);
    }

    void aSaveWinsWhereBothHaveChanged() {
        Store::ZrXmlRead();
        Store::ZrXmlWrite();
        QVERIFY(otherWrites("<Key2P>3</Key2P><Language>1</Language>"));
        Store::Key2P = 2;
        Store::ZrXmlWrite();
        QVERIFY(fileSays("Key2P", 2) && fileSays("Language", 1));
    }

    void aChangeThatCouldNotBeSavedIsStillOurs() {
        Store::ZrXmlRead();
        QVERIFY(QDir().mkdir(userfile::path())); // nothing can be saved there
        Store::Key2P = 2;
        Store::ZrXmlWrite();
        userfile::clear();
        QVERIFY(userfile::write("<a><b><Key2P>3</Key2P><Key3P>4</Key3P></b></a>"));
        Store::ZrXmlWrite();
        QVERIFY(fileSays("Key2P", 2) && fileSays("Key3P", 4));
    }

    void whatTheOtherLeavesOutIsWritten() {
        Store::ZrXmlRead();
        QVERIFY(userfile::write("<a><b><Language>1</Language></b></a>"));
        Store::Key2P = 2;
        Store::ZrXmlWrite();
        QVERIFY(fileSays("Key2P", 2) && fileSays("Language", 1) && fileSays("LaserPenSize", 13));
    }

    void aFileThatTheOtherHasRemovedIsWrittenWhole() {
        Store::ZrXmlRead();
        Store::ZrXmlWrite();
        const QByteArray saved = userfile::read();
        userfile::clear();
        Store::ZrXmlWrite();
        QCOMPARE(userfile::read(), saved);
    }

    void aFileThatTheOtherHasBrokenIsWrittenWhole() {
        Store::ZrXmlRead();
        Store::ZrXmlWrite();
        const QByteArray saved = userfile::read();
        QVERIFY(userfile::write("<a><b><Language>1</Language>"));
        Store::ZrXmlWrite();
        QCOMPARE(userfile::read(), saved);
        QCOMPARE(userfile::read(userfile::badPath()), QByteArray("<a><b><Language>1</Language>"));
    }

private:
    static bool fileSays(const char *element, int value) {
        return userfile::read().contains(
            QStringLiteral("<%1>%2</%1>").arg(QLatin1String(element)).arg(value).toUtf8());
    }
    /// The other process changes these and leaves the rest as it is.
    static bool otherWrites(const QByteArray &settings) {
        QByteArray file = userfile::read();
        return userfile::write(file.replace("    </Setting>", settings + "    </Setting>"));
    }
};

QTEST_GUILESS_MAIN(SettingsSharedTest)
#include "SettingsSharedTest.moc"
