// SPDX-License-Identifier: MIT
#pragma once

namespace vexa {

/// The messages between the settings view and its host, by their numbers. Most carry the setting that they
/// are named after, in both directions.
enum class ViewMessage {
    HidePanel = 0, ///< to the host
    SportLightTran = 2,
    SportLightSize = 3,
    MagnifierColor = 4,
    MagnifierSize = 5,
    LaserPenColor = 6,
    LaserPenSize = 7,
    PenColor0 = 8,
    PenColor1 = 9,
    PenColor2 = 10,
    PenThickness = 11,
    Key2P = 12,
    Key3P = 13,
    Key4C = 14,
    Key4P = 15,
    Language = 16,
    AutoStart = 17,
    ShowView = 1000, ///< to the view: 1 shows all of it, 0 hides it
};

/// The messages that carry a setting: every number from the first to the last does.
constexpr ViewMessage firstSettingMessage = ViewMessage::SportLightTran;
constexpr ViewMessage lastSettingMessage = ViewMessage::AutoStart;

} // namespace vexa
