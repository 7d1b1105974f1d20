// SPDX-License-Identifier: MIT
#include "support/UserFile.h"

#include <QtTest>

using namespace vexa::test;

using Store = ZrToolXmlClass;

/// What a read makes of the settings in memory.
class SettingsReadTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { userfile::clear(); }

    void membersStartWithTheirOwnValues();
    void withoutUserFileTheBuiltInFileHolds();
    void readingCreatesNoUserFile();
    void theUserFileComesFirst();
    void elementsThatAreNoSettingsAreIgnored();
    void firstRunFollowsTheRootAttribute_data();
    void firstRunFollowsTheRootAttribute();
    void aTextThatIsNoNumberCountsAsZero_data();
    void aTextThatIsNoNumberCountsAsZero();
    void valuesAreNotChecked();
    void namesInOtherLetterCaseAreIgnored();
    void theLaterOfTwoElementsHolds();
    void absentElementsKeepTheirValue();
    void rootAndGroupMayHaveAnyName();
    void settingsOutsideAGroupAreIgnored();
    void commentsAndTextsAreSkipped();
    void prefixesAreNotNamespaces();
    void aFileInAnotherEncodingIsRead();
    void aFileCutOffInTheMiddleChangesNothing();

private:
    QVector<int> m_atStart;
};

namespace {

QByteArray withSettings(const QByteArray &elements) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<PenSetting FirstRun=\"1\">\n    <Setting>\n" +
           elements + "    </Setting>\n</PenSetting>\n";
}

QVector<int> settingsNow() {
    return {Store::Key2P,
            Store::Key3P,
            Store::Key4C,
            Store::Key4P,
            Store::PenColor0,
            Store::PenColor1,
            Store::PenColor2,
            Store::PenThickness,
            Store::LaserPenSize,
            Store::LaserPenColor,
            Store::MagnifierSize,
            Store::MagnifierColor,
            Store::SportLightSize,
            Store::SportLightTran,
            Store::AutoStart,
            Store::Language,
            Store::ShowPrivacyWindow,
            Store::ifirstRun};
}

} // namespace

void SettingsReadTest::initTestCase() {
    m_atStart = settingsNow();
}

void SettingsReadTest::init() {
    userfile::clear();
    userfile::forgetSettings();
}

void SettingsReadTest::membersStartWithTheirOwnValues() {
    const QVector<int> expected{1, 3, 4, 2, 0, 1, 2, 0, 200, 0, 200, 0, 200, 175, 0, 2, 1, false};
    QCOMPARE(m_atStart, expected);
}

void SettingsReadTest::withoutUserFileTheBuiltInFileHolds() {
    Store::ZrXmlRead();
    QCOMPARE(Store::Key2P, 1);
    QCOMPARE(Store::Key3P, 3);
    QCOMPARE(Store::Key4C, 4);
    QCOMPARE(Store::Key4P, 0);
    QCOMPARE(Store::PenColor0, 2);
    QCOMPARE(Store::PenColor1, 1);
    QCOMPARE(Store::PenColor2, 0);
    QCOMPARE(Store::PenThickness, 1);
    QCOMPARE(Store::LaserPenSize, 13);
    QCOMPARE(Store::LaserPenColor, 22);
    QCOMPARE(Store::MagnifierSize, 177);
    QCOMPARE(Store::MagnifierColor, 890);
    QCOMPARE(Store::SportLightSize, 183);
    QCOMPARE(Store::SportLightTran, 132);
    QCOMPARE(Store::AutoStart, 1);
    QCOMPARE(Store::Language, 0);
    QCOMPARE(Store::ShowPrivacyWindow, 1);
    QCOMPARE(Store::ifirstRun, true);

    Store::ShowPrivacyWindow = 0;
    Store::ZrXmlRead();
    QCOMPARE(Store::ShowPrivacyWindow, 0);
}

void SettingsReadTest::readingCreatesNoUserFile() {
    Store::ZrXmlRead();
    QVERIFY(!QFileInfo::exists(userfile::path()));
}

void SettingsReadTest::theUserFileComesFirst() {
    QVERIFY(userfile::write(withSettings("<Key4P>1</Key4P><LaserPenColor>700</LaserPenColor>")));
    Store::ZrXmlRead();
    QCOMPARE(Store::Key4P, 1);
    QCOMPARE(Store::LaserPenColor, 700);
}

void SettingsReadTest::elementsThatAreNoSettingsAreIgnored() {
    QByteArray elements;
    for (const char *const name : {"Key2C", "Key3C", "LaserPenColorR", "LaserPenColorG", "LaserPenColorB",
                                   "MagnifierColorR", "MagnifierColorG", "MagnifierColorB", "UpdataSoft"})
        elements += QByteArray("<") + name + ">9</" + name + '>';
    QVERIFY(userfile::write("<PenSetting ShowPrompt=\"9\" ShowCursor=\"9\" FirstRun=\"0\"><Setting>" +
                            elements + "<Key3P>2</Key3P></Setting></PenSetting>"));
    Store::ZrXmlRead();
    QCOMPARE(Store::Key3P, 2);
    Store::Key3P = 3;
    QCOMPARE(settingsNow(), m_atStart);
}

void SettingsReadTest::firstRunFollowsTheRootAttribute_data() {
    QTest::addColumn<QByteArray>("attribute");
    QTest::addColumn<bool>("expected");
    QTest::newRow("1") << QByteArray(" FirstRun=\"1\"") << true;
    QTest::newRow("0") << QByteArray(" FirstRun=\"0\"") << false;
    QTest::newRow("absent") << QByteArray() << false;
    QTest::newRow("empty") << QByteArray(" FirstRun=\"\"") << false;
    QTest::newRow("no number") << QByteArray(" FirstRun=\"true\"") << false;
    QTest::newRow("other number") << QByteArray(" FirstRun=\"-3\"") << true;
    QTest::newRow("other case") << QByteArray(" firstrun=\"1\"") << false;
}

void SettingsReadTest::firstRunFollowsTheRootAttribute() {
    QFETCH(QByteArray, attribute);
    QFETCH(bool, expected);
    Store::ifirstRun = !expected;
    QVERIFY(userfile::write("<PenSetting" + attribute + "/>"));
    Store::ZrXmlRead();
    QCOMPARE(Store::ifirstRun, expected);
}

void SettingsReadTest::aTextThatIsNoNumberCountsAsZero_data() {
    QTest::addColumn<QByteArray>("text");
    for (const char *const text : {"abc", "", "1.5", "0x10", "12 3", "2147483648", "&lt;"})
        QTest::newRow(*text ? text : "empty") << QByteArray(text);
}

void SettingsReadTest::aTextThatIsNoNumberCountsAsZero() {
    QFETCH(QByteArray, text);
    QVERIFY(userfile::write(withSettings("<Language>" + text + "</Language>")));
    Store::ZrXmlRead();
    QCOMPARE(Store::Language, 0);
}

void SettingsReadTest::valuesAreNotChecked() {
    QVERIFY(userfile::write(withSettings("<Key2P>7</Key2P><PenColor0>-5</PenColor0>"
                                         "<LaserPenSize>2147483647</LaserPenSize>")));
    Store::ZrXmlRead();
    QCOMPARE(Store::Key2P, 7);
    QCOMPARE(Store::PenColor0, -5);
    QCOMPARE(Store::LaserPenSize, 2147483647);
}

void SettingsReadTest::namesInOtherLetterCaseAreIgnored() {
    QVERIFY(userfile::write(withSettings("<key2p>4</key2p><LANGUAGE>1</LANGUAGE>")));
    Store::ZrXmlRead();
    QCOMPARE(Store::Key2P, 1);
    QCOMPARE(Store::Language, 2);
}

void SettingsReadTest::theLaterOfTwoElementsHolds() {
    QVERIFY(userfile::write("<A><B><Key2P>2</Key2P><Key2P>3</Key2P></B><C><Key3P>4</Key3P></C>"
                            "<B><Key3P>0</Key3P></B></A>"));
    Store::ZrXmlRead();
    QCOMPARE(Store::Key2P, 3);
    QCOMPARE(Store::Key3P, 0);
}

void SettingsReadTest::absentElementsKeepTheirValue() {
    Store::MagnifierSize = 99;
    QVERIFY(userfile::write(withSettings("<Key2P>2</Key2P>")));
    Store::ZrXmlRead();
    QCOMPARE(Store::MagnifierSize, 99);
    QCOMPARE(Store::Key4P, 2);
}

void SettingsReadTest::rootAndGroupMayHaveAnyName() {
    QVERIFY(userfile::write("<Whatever FirstRun=\"1\"><Group><Key2P>4</Key2P></Group></Whatever>"));
    Store::ZrXmlRead();
    QCOMPARE(Store::Key2P, 4);
    QCOMPARE(Store::ifirstRun, true);
}

void SettingsReadTest::settingsOutsideAGroupAreIgnored() {
    QVERIFY(userfile::write(
        "<PenSetting><Key2P>4</Key2P><Setting><More><Key3P>4</Key3P></More></Setting></PenSetting>"));
    Store::ZrXmlRead();
    QCOMPARE(Store::Key2P, 1);
    QCOMPARE(Store::Key3P, 3);
}

void SettingsReadTest::commentsAndTextsAreSkipped() {
    QVERIFY(userfile::write(
        withSettings("words<!-- <Key2P>4</Key2P> --><Key3P><!-- two -->2</Key3P>more words")));
    Store::ZrXmlRead();
    QCOMPARE(Store::Key2P, 1);
    QCOMPARE(Store::Key3P, 2);
}

void SettingsReadTest::prefixesAreNotNamespaces() {
    QVERIFY(userfile::write(withSettings("<x:Key2P>4</x:Key2P><Key3P>2</Key3P>")));
    Store::ZrXmlRead();
    QCOMPARE(Store::Key2P, 1);
    QCOMPARE(Store::Key3P, 2);
}

void SettingsReadTest::aFileInAnotherEncodingIsRead() {
    const QString text = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-16\"?>"
                                        "<P><S><Key2P>4</Key2P></S></P>");
    const QByteArray utf16 =
        QByteArray("\xFF\xFE", 2) + QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
    QVERIFY(userfile::write(utf16));
    Store::ZrXmlRead();
    QCOMPARE(Store::Key2P, 4);
}

void SettingsReadTest::aFileCutOffInTheMiddleChangesNothing() {
    const QByteArray whole = withSettings("<Key2P>4</Key2P><Key3P>4</Key3P>").trimmed();
    for (int length = 0; length < whole.size(); ++length) {
        userfile::forgetSettings();
        QVERIFY(userfile::write(whole.left(length)));
        Store::ZrXmlRead();
        QCOMPARE(Store::Key2P, 1);
        QCOMPARE(Store::Key3P, 3);
        QCOMPARE(Store::ifirstRun, false);
    }
    QVERIFY(userfile::write(whole));
    Store::ZrXmlRead();
    QCOMPARE(Store::Key2P, 4);
}

QTEST_GUILESS_MAIN(SettingsReadTest)
#include "SettingsReadTest.moc"
