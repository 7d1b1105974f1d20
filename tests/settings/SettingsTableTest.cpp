// SPDX-License-Identifier: MIT
#include "settings/SettingsTable.h"

#include "support/StoredSettings.h"

#include <QtTest>

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
                QCOMPARE(vexa::settingOfMessage(vexa::ViewMessage(expected.message)), &setting);
        }
    }

    void otherMessagesAndElementsCarryNone() {
        for (const int message : {-1, 0, 1, 18, 1000})
            QVERIFY(!vexa::settingOfMessage(vexa::ViewMessage(message)));
        for (const QString &element : {QStringLiteral("key2p"), QString()})
            QVERIFY(!vexa::settingOfElement(element));
    }
};

QTEST_APPLESS_MAIN(SettingsTableTest)
#include "SettingsTableTest.moc"
