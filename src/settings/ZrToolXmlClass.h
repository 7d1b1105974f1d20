// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// The user's settings: one copy for the whole process, read and assigned directly. GUI thread only.
///
/// A change is made by assigning the member and then calling ZrXmlWrite(). The ranges belong to those who use
/// a value; nothing is checked or clamped here. SettingsTable.h lists the members for those who loop over
/// them.
class ZrToolXmlClass {
public:
    /// Takes over what "VexaPenSetting.xml" beside the executable says, or, where that cannot be opened, what
    /// the built-in file says. What the file does not mention, and everything when it is not well-formed,
    /// stays.
    static void ZrXmlRead();

    /// Replaces the file whole. What has not changed here since this process last read or wrote the file
    /// stays as the file has it, since another process may have changed it. Where the file cannot be written,
    /// nothing happens. On a slow disk this takes no longer than a frame.
    static void ZrXmlWrite();

    // Choices.h has the names of the numbers that stand for an action, a tool or a language.

    /// What the long presses of keys 2 and 3 and the single press of key 4 do: a KeyAction.
    static std::int32_t Key2P;
    static std::int32_t Key3P;
    static std::int32_t Key4C;
    /// What holding key 4 shows: a HeldToolChoice.
    static std::int32_t Key4P;
    /// The three pens as indices into the pen palette, and their width as an index into the pen widths.
    static std::int32_t PenColor0;
    static std::int32_t PenColor1;
    static std::int32_t PenColor2;
    static std::int32_t PenThickness;
    /// The held tools: sizes are radii in points, colours are values of a colour slider (0 to 1275).
    static std::int32_t LaserPenSize;
    static std::int32_t LaserPenColor;
    static std::int32_t MagnifierSize;
    static std::int32_t MagnifierColor;
    static std::int32_t SportLightSize;
    /// How dark the spotlight's veil is, as an alpha: 0 clear to 255 black.
    static std::int32_t SportLightTran;
    /// 1: started at login.
    static std::int32_t AutoStart;
    /// An InterfaceLanguage.
    static std::int32_t Language;
    /// Non-zero: the guide to the privacy permissions is shown at start.
    static std::int32_t ShowPrivacyWindow;
    /// What the file says of a first run. Nothing reads it, and every file written says yes: both on purpose.
    static bool ifirstRun;
};
