// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <array>
#include <cstdint>

namespace vexa {

/// One stored setting: where it lives, what its element in the file is called, and the identifier of its
/// message between the settings view and its host (0: it has none).
struct Setting {
    int message;
    const char *element;
    std::int32_t *value;
};

/// All stored settings, in the order in which the file is written. A new setting is one more line in this
/// table.
extern const std::array<Setting, 17> settingsTable;

/// The messages that carry a setting: every identifier from the first to the last belongs to exactly one
/// setting.
constexpr int firstSettingMessage = 2;
constexpr int lastSettingMessage = 17;

/// The setting that a message carries, or null.
const Setting *settingOfMessage(int message);

/// The setting of an element's exact name, or null.
const Setting *settingOfElement(const QString &element);

} // namespace vexa
