// SPDX-License-Identifier: MIT
#include "fuzz/Target.h"
#include "settings/SettingsFormat.h"

/// Any bytes as the settings file: they are refused, or give numbers which survive being saved.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const auto document = vexa::parseSettings(QByteArray(reinterpret_cast<const char *>(data), int(size)));
    if (!document)
        return 0;
    static_cast<void>(vexa::firstRunIn(*document));
    const vexa::SettingValues values = vexa::settingsIn(*document, {});
    const auto saved = vexa::parseSettings(vexa::formatSettings(values));
    vexa::SettingValues others;
    others.fill(-1);
    fuzz::require(saved && vexa::settingsIn(*saved, others) == values && vexa::firstRunIn(*saved));
    return 0;
}
