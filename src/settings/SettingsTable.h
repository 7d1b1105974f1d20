// SPDX-License-Identifier: MIT
#pragma once

#include "settings/ViewMessage.h"

#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace vexa {

/// One stored setting: where it lives, what its element in the file is called, and its message between the
/// settings view and its host, if it has one.
struct Setting {
    std::optional<ViewMessage> message;
    const char *element;
    std::int32_t *value;
};

/// All stored settings, in the order in which the file is written. A new setting is one more line in this
/// table.
extern const std::array<Setting, 17> settingsTable;

/// A value for each setting, in the order of the table.
using SettingValues = std::array<std::int32_t, std::tuple_size_v<decltype(settingsTable)>>;

/// Its place in the table, of which it has to be a row itself, not a copy.
inline std::size_t indexOf(const Setting &setting) {
    return static_cast<std::size_t>(&setting - settingsTable.data());
}

/// The setting that a message carries; null for other messages and for numbers that are none.
const Setting *settingOfMessage(ViewMessage message);

/// The setting of an element's exact name, or null.
const Setting *settingOfElement(const QString &element);

} // namespace vexa
