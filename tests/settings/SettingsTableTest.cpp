// SPDX-License-Identifier: MIT
#include "settings/SettingsTable.h"

#include "settings/ZrToolXmlClass.h"

#include <QtTest>

using Store = ZrToolXmlClass;

class SettingsTableTest : public QObject {
    Q_OBJECT

private slots:
    void everyMessageCarriesItsSetting_data();
    void everyMessageCarriesItsSetting();
    void otherMessagesCarryNone();
    void theGuideHasNoMessage();
    void elementNamesAreCaseSensitive();
};

void SettingsTableTest::everyMessageCarriesItsSetting_data() {
    QTest::addColumn<int>("message");
    QTest::addColumn<QString>("element");
    QTest::addColumn<void *>("member");

    const auto row = [](int message, const char *name, std::int32_t *member) {
        QTest::newRow(name) << message << QString::fromLatin1(name) << static_cast<void *>(member);
    };
    row(2, "SportLightTran", &Store::SportLightTran);
    row(3, "SportLightSize", &Store::SportLightSize);
    row(4, "MagnifierColor", &Store::MagnifierColor);
    row(5, "MagnifierSize", &Store::MagnifierSize);
    row(6, "LaserPenColor", &Store::LaserPenColor);
    row(7, "LaserPenSize", &Store::LaserPenSize);
    row(8, "PenColor0", &Store::PenColor0);
    row(9, "PenColor1", &Store::PenColor1);
    row(10, "PenColor2", &Store::PenColor2);
    row(11, "PenThickness", &Store::PenThickness);
    row(12, "Key2P", &Store::Key2P);
    row(13, "Key3P", &Store::Key3P);
    row(14, "Key4C", &Store::Key4C);
    row(15, "Key4P", &Store::Key4P);
    row(16, "Language", &Store::Language);
    row(17, "AutoStart", &Store::AutoStart);
}

void SettingsTableTest::everyMessageCarriesItsSetting() {
    QFETCH(int, message);
    QFETCH(QString, element);
    QFETCH(void *, member);

    const vexa::Setting *const setting = vexa::settingOfMessage(vexa::ViewMessage(message));
    QVERIFY(setting);
    QCOMPARE(QString::fromLatin1(setting->element), element);
    QCOMPARE(static_cast<void *>(setting->value), member);
    QCOMPARE(vexa::settingOfElement(element), setting);
}

void SettingsTableTest::otherMessagesCarryNone() {
    for (const int message : {-1, 0, 1, 18, 1000})
        QVERIFY(!vexa::settingOfMessage(vexa::ViewMessage(message)));
}

void SettingsTableTest::theGuideHasNoMessage() {
    const vexa::Setting *const setting = vexa::settingOfElement(QStringLiteral("ShowPrivacyWindow"));
    QVERIFY(setting);
    QVERIFY(!setting->message);
    QCOMPARE(setting->value, &Store::ShowPrivacyWindow);
}

void SettingsTableTest::elementNamesAreCaseSensitive() {
    QVERIFY(vexa::settingOfElement(QStringLiteral("Key2P")));
    QVERIFY(!vexa::settingOfElement(QStringLiteral("key2p")));
    QVERIFY(!vexa::settingOfElement(QString()));
}

QTEST_APPLESS_MAIN(SettingsTableTest)
#include "SettingsTableTest.moc"
