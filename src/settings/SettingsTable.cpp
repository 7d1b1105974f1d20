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
    {ViewMessage::Key2P, "Key2P", &Store::Key2P},
    {ViewMessage::Key3P, "Key3P", &Store::Key3P},
    {ViewMessage::PenColor0, "PenColor0", &Store::PenColor0},
    {ViewMessage::PenColor1, "PenColor1", &Store::PenColor1},
    {ViewMessage::PenColor2, "PenColor2", &Store::PenColor2},
    {ViewMessage::PenThickness, "PenThickness", &Store::PenThickness},
    {ViewMessage::SportLightSize, "SportLightSize", &Store::SportLightSize},
    {ViewMessage::SportLightTran, "SportLightTran", &Store::SportLightTran},
    {ViewMessage::MagnifierSize, "MagnifierSize", &Store::MagnifierSize},
    {ViewMessage::MagnifierColor, "MagnifierColor", &Store::MagnifierColor},
    {ViewMessage::LaserPenSize, "LaserPenSize", &Store::LaserPenSize},
    {ViewMessage::LaserPenColor, "LaserPenColor", &Store::LaserPenColor},
    {ViewMessage::Key4C, "Key4C", &Store::Key4C},
    {ViewMessage::Key4P, "Key4P", &Store::Key4P},
    {ViewMessage::AutoStart, "AutoStart", &Store::AutoStart},
    {ViewMessage::Language, "Language", &Store::Language},
    {std::nullopt, "ShowPrivacyWindow", &Store::ShowPrivacyWindow},
}};

const Setting *settingOfMessage(ViewMessage message) {
    return firstSetting([message](const Setting &setting) { return setting.message == message; });
}

const Setting *settingOfElement(const QString &element) {
    return firstSetting(
        [&element](const Setting &setting) { return element == QLatin1String(setting.element); });
}

} // namespace vexa
