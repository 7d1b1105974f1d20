// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDomDocument>
#include <optional>

/// The text form of the settings, apart from where it is kept. GUI thread, which the settings live on.
namespace vexa {

/// The document in these bytes; nothing when they are not well-formed, nested deeper than any settings are,
/// or of a kind that takes a reader much time or memory: with entities, default attributes or hundreds of
/// attributes in one tag.
std::optional<QDomDocument> parseSettings(const QByteArray &bytes);

/// Assigns what the document holds to the members of ZrToolXmlClass; the others stay.
void applySettings(const QDomDocument &document);

/// All stored settings as the file holds them, UTF-8 without a byte-order mark.
QByteArray formatSettings();

} // namespace vexa
