// SPDX-License-Identifier: MIT
#pragma once

namespace vexa {

// What the numbers in some settings stand for. The numbers are those of the file and of the view's messages.
// A setting may hold any other number as well: it is then none of these.

/// Key2P, Key3P and Key4C: what a press does.
enum class KeyAction {
    None = 0,
    SlideShow = 1,
    PlayPause = 2,
    Blackboard = 3,
    Screenshot = 4,
};

/// Key4P: what holding key 4 shows.
enum class HeldToolChoice {
    Spotlight = 0,
    Magnifier = 1,
    Laser = 2,
};

/// Language: the interface's.
enum class InterfaceLanguage {
    SimplifiedChinese = 0,
    TraditionalChinese = 1,
    English = 2,
};

} // namespace vexa
