// SPDX-License-Identifier: MIT
#pragma once

#include "settings/SettingsTable.h"

#include <QByteArray>
#include <QDomDocument>

#include <optional>

/// The text form of the settings, apart from where it is kept and where it belongs. Any thread.
namespace vexa {

/// The document in these bytes; nothing when they are not well-formed, nested deeper than any settings are,
/// or of a kind that takes a reader much time or memory: with entities, default attributes or hundreds of
/// attributes in one tag.
std::optional<QDomDocument> parseSettings(const QByteArray &bytes);

/// What the document says of each setting; for those it does not mention, `otherwise`.
SettingValues settingsIn(const QDomDocument &document, const SettingValues &otherwise);

/// What the document says of a first run.
bool firstRunIn(const QDomDocument &document);

/// The values as the file holds them, UTF-8 without a byte-order mark.
QByteArray formatSettings(const SettingValues &values);

} // namespace vexa
