// SPDX-License-Identifier: MIT
#include "settings/SettingsTable.h"

#include "settings/ZrToolXmlClass.h"

#include <algorithm>

namespace vexa {

namespace {

using Store = ZrToolXmlClass;

template<typename Predicate> const Setting *firstSetting(Predicate matches) {
    const auto *const found = std::find_if(settingsTable.begin(), settingsTable.end(), matches);
    return found == settingsTable.end() ? nullptr : found;
}

} // namespace

const std::array<Setting, 17> settingsTable{{
    {12, "Key2P", &Store::Key2P},
    {13, "Key3P", &Store::Key3P},
    {8, "PenColor0", &Store::PenColor0},
    {9, "PenColor1", &Store::PenColor1},
    {10, "PenColor2", &Store::PenColor2},
    {11, "PenThickness", &Store::PenThickness},
    {3, "SportLightSize", &Store::SportLightSize},
    {2, "SportLightTran", &Store::SportLightTran},
    {5, "MagnifierSize", &Store::MagnifierSize},
    {4, "MagnifierColor", &Store::MagnifierColor},
    {7, "LaserPenSize", &Store::LaserPenSize},
    {6, "LaserPenColor", &Store::LaserPenColor},
    {14, "Key4C", &Store::Key4C},
    {15, "Key4P", &Store::Key4P},
    {17, "AutoStart", &Store::AutoStart},
    {16, "Language", &Store::Language},
    {0, "ShowPrivacyWindow", &Store::ShowPrivacyWindow},
}};

const Setting *settingOfMessage(int message) {
    if (message < firstSettingMessage || message > lastSettingMessage)
        return nullptr;
    return firstSetting([message](const Setting &setting) { return setting.message == message; });
}

const Setting *settingOfElement(const QString &element) {
    return firstSetting(
        [&element](const Setting &setting) { return element == QLatin1String(setting.element); });
}

} // namespace vexa
