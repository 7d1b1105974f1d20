// SPDX-License-Identifier: MIT
#include "support/UserFile.h"

#include <QTest>

using namespace vexa::test;

using Store = ZrToolXmlClass;
using Values = QMap<QByteArray, int>;

namespace {

QByteArray withSettings(const QByteArray &elements) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<PenSetting FirstRun=\"1\">\n    <Setting>\n" +
           elements + "    </Setting>\n</PenSetting>\n";
}

Values settingsNow() {
    Values values;
    for (const StoredSetting &setting : storedSettings)
        values[setting.element] = *setting.value;
    return values;
}

} // namespace

/// What a read makes of the settings in memory.
class SettingsReadTest : public QObject {
    Q_OBJECT

private slots:
    // Before anything has touched them.
    void initTestCase() {
        for (const StoredSetting &setting : storedSettings)
            QVERIFY2(*setting.value == setting.atStart, setting.element);
        QCOMPARE(Store::ifirstRun, false);
        m_atStart = settingsNow();
    }

    void init() { userfile::startAfresh(); }
    void cleanup() { userfile::clear(); }

    void withoutUserFileTheBuiltInFileHoldsAndNoneIsMade() {
        Store::ZrXmlRead();
        for (const StoredSetting &setting : storedSettings)
            QVERIFY2(*setting.value == setting.shipped, setting.element);
        QCOMPARE(Store::ifirstRun, true);
        QVERIFY(!QFileInfo::exists(userfile::path()));

        Store::ShowPrivacyWindow = 0; // which that file does not mention
        Store::ZrXmlRead();
        QCOMPARE(Store::ShowPrivacyWindow, 0);
    }

    void aFileChangesWhatItNamesAndNothingElse_data() {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<Values>("changes");
        const auto row = [](const char *name, const QByteArray &file, const Values &changes) {
            QTest::newRow(name) << file << changes;
        };
        row("settings", withSettings("<Key4P>1</Key4P><LaserPenColor>700</LaserPenColor>"),
            {{"Key4P", 1}, {"LaserPenColor", 700}});
        row("values out of range",
            withSettings("<Key2P>7</Key2P><PenColor0>-5</PenColor0>"
                         "<LaserPenSize>2147483647</LaserPenSize>"),
            {{"Key2P", 7}, {"PenColor0", -5}, {"LaserPenSize", 2147483647}});
        row("names in another letter case", withSettings("<key2p>4</key2p><LANGUAGE>1</LANGUAGE>"), {});
        row("later elements",
            "<A><B><Key2P>2</Key2P><Key2P>3</Key2P></B><C><Key3P>4</Key3P></C>"
            "<B><Key3P>0</Key3P></B></A>",
            {{"Key2P", 3}, {"Key3P", 0}});
        row("other names of root and group", "<Whatever><Group><Key2P>4</Key2P></Group></Whatever>",
            {{"Key2P", 4}});
        row("settings outside of a group",
            "<PenSetting><Key2P>4</Key2P><Setting><More><Key3P>4</Key3P></More></Setting></PenSetting>", {});
        row("comments and texts",
            withSettings("words<!-- <Key2P>4</Key2P> --><Key3P><!-- two -->2</Key3P>more words"),
            {{"Key3P", 2}});
        row("prefixes", withSettings("<x:Key2P>4</x:Key2P><Key3P>2</Key3P>"), {{"Key3P", 2}});
        const QString wide = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-16\"?>"
                                            "<P><S><Key2P>4</Key2P></S></P>");
        row("another encoding",
            "\xFF\xFE" + QByteArray(reinterpret_cast<const char *>(wide.utf16()), wide.size() * 2),
            {{"Key2P", 4}});
        QByteArray strangers;
        for (const char *const name : {"Key2C", "Key3C", "LaserPenColorR", "LaserPenColorG", "LaserPenColorB",
                                       "MagnifierColorR", "MagnifierColorG", "MagnifierColorB", "UpdataSoft"})
            strangers += QByteArray("<") + name + ">9</" + name + '>';
        row("what is no setting",
            "<PenSetting ShowPrompt=\"9\" ShowCursor=\"9\"><Setting>" + strangers +
                "<Key3P>2</Key3P></Setting></PenSetting>",
            {{"Key3P", 2}});
        for (const char *const text : {"abc", "", "1.5", "0x10", "12 3", "2147483648", "&lt;"})
            row(qPrintable(QStringLiteral("no number: %1").arg(QLatin1String(text))),
                withSettings(QByteArray("<Language>") + text + "</Language>"), {{"Language", 0}});
    }

    void aFileChangesWhatItNamesAndNothingElse() {
        QFETCH(QByteArray, file);
        QFETCH(Values, changes);
        Values expected = m_atStart;
        expected["MagnifierSize"] = Store::MagnifierSize = 99;
        for (auto change = changes.cbegin(); change != changes.cend(); ++change)
            expected[change.key()] = change.value();
        QVERIFY(userfile::write(file));
        Store::ZrXmlRead();
        QCOMPARE(settingsNow(), expected);
    }

    void firstRunFollowsTheRootAttribute_data() {
        QTest::addColumn<bool>("expected");
        QTest::newRow(" FirstRun=\"1\"") << true;
        QTest::newRow(" FirstRun=\"0\"") << false;
        QTest::newRow("") << false;
        QTest::newRow(" FirstRun=\"\"") << false;
        QTest::newRow(" FirstRun=\"true\"") << false;
        QTest::newRow(" FirstRun=\"-3\"") << true;
        QTest::newRow(" firstrun=\"1\"") << false;
    }

    void firstRunFollowsTheRootAttribute() {
        QFETCH(bool, expected);
        Store::ifirstRun = !expected;
        QVERIFY(userfile::write(QByteArray("<PenSetting") + QTest::currentDataTag() + "/>"));
        Store::ZrXmlRead();
        QCOMPARE(Store::ifirstRun, expected);
    }

    void aFileCutOffInTheMiddleChangesNothing() {
        const QByteArray whole = withSettings("<Key2P>4</Key2P><Key3P>4</Key3P>").trimmed();
        for (int length = 0; length < whole.size(); ++length) {
            QVERIFY(userfile::write(whole.left(length)));
            Store::ZrXmlRead();
            QCOMPARE(settingsNow(), m_atStart);
            QCOMPARE(Store::ifirstRun, false);
        }
        QVERIFY(userfile::write(whole));
        Store::ZrXmlRead();
        QCOMPARE(Store::Key2P, 4);
    }

private:
    Values m_atStart;
};

QTEST_GUILESS_MAIN(SettingsReadTest)
#include "SettingsReadTest.moc"
