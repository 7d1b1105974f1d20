// SPDX-License-Identifier: MIT
#include "settings/SettingsTable.h"

#include "support/StoredSettings.h"
#include "support/ViewNumbers.h"

#include <QTest>

using namespace vexa::test;

class SettingsTableTest : public QObject {
    Q_OBJECT

private slots:
    void everySettingHasItsElementMessageAndMember() {
        QCOMPARE(vexa::settingsTable.size(), std::size(storedSettings));
        for (std::size_t i = 0; i < std::size(storedSettings); ++i) {
            const StoredSetting &expected = storedSettings[i];
            const vexa::Setting &setting = vexa::settingsTable[i];
            QCOMPARE(setting.element, expected.element);
            QVERIFY2(setting.value == expected.value, expected.element);
            QCOMPARE(setting.message ? int(*setting.message) : 0, expected.message);
            QCOMPARE(vexa::settingOfElement(QString::fromLatin1(expected.element)), &setting);
            if (expected.message != 0)
                QCOMPARE(vexa::settingOfMessage(ViewMessage(expected.message)), &setting);
        }
    }

    /// The file and the view of any other release have these numbers too.
    void namesStandForTheirNumbers() {
        QCOMPARE(int(ViewMessage::HidePanel), 0);
        QCOMPARE(int(ViewMessage::ShowView), 1000);
        QCOMPARE(int(vexa::firstSettingMessage), 2);
        QCOMPARE(int(vexa::lastSettingMessage), 17);
        const auto numbers = [](std::initializer_list<Number> names) {
            return QVector<int>(names.begin(), names.end());
        };
        QCOMPARE(numbers({KeyAction::None, KeyAction::SlideShow, KeyAction::PlayPause, KeyAction::Blackboard,
                          KeyAction::Screenshot}),
                 numbers({0, 1, 2, 3, 4}));
        QCOMPARE(numbers({HeldToolChoice::Spotlight, HeldToolChoice::Magnifier, HeldToolChoice::Laser}),
                 numbers({0, 1, 2}));
        QCOMPARE(numbers({simplifiedChinese, traditionalChinese, english}), numbers({0, 1, 2}));
    }

    void otherMessagesAndElementsCarryNone() {
        for (const auto message : {ViewMessage(-1), ViewMessage::HidePanel, ViewMessage(1), ViewMessage(18),
                                   ViewMessage::ShowView})
            QVERIFY(!vexa::settingOfMessage(message));
        for (const QString &element : {QStringLiteral("key2p"), QString()})
            QVERIFY(!vexa::settingOfElement(element));
    }
};

QTEST_APPLESS_MAIN(SettingsTableTest)
#include "SettingsTableTest.moc"
