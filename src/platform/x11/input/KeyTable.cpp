// SPDX-License-Identifier: MIT
#include "platform/x11/input/KeyTable.h"

#include "platform/quartz/VirtualKeys.h"

#include <array>
#include <linux/input-event-codes.h>

namespace vexa::x11 {

namespace {

struct Row {
    std::int8_t virtualKey;
    std::uint8_t kernelKey;
};

// Of several rows with the same virtual key the first one is posted.
constexpr Row rows[] = {
    // letters
    {kVK_ANSI_A, KEY_A},
    {kVK_ANSI_B, KEY_B},
    {kVK_ANSI_C, KEY_C},
    {kVK_ANSI_D, KEY_D},
    {kVK_ANSI_E, KEY_E},
    {kVK_ANSI_F, KEY_F},
    {kVK_ANSI_G, KEY_G},
    {kVK_ANSI_H, KEY_H},
    {kVK_ANSI_I, KEY_I},
    {kVK_ANSI_J, KEY_J},
    {kVK_ANSI_K, KEY_K},
    {kVK_ANSI_L, KEY_L},
    {kVK_ANSI_M, KEY_M},
    {kVK_ANSI_N, KEY_N},
    {kVK_ANSI_O, KEY_O},
    {kVK_ANSI_P, KEY_P},
    {kVK_ANSI_Q, KEY_Q},
    {kVK_ANSI_R, KEY_R},
    {kVK_ANSI_S, KEY_S},
    {kVK_ANSI_T, KEY_T},
    {kVK_ANSI_U, KEY_U},
    {kVK_ANSI_V, KEY_V},
    {kVK_ANSI_W, KEY_W},
    {kVK_ANSI_X, KEY_X},
    {kVK_ANSI_Y, KEY_Y},
    {kVK_ANSI_Z, KEY_Z},
    // digits
    {kVK_ANSI_1, KEY_1},
    {kVK_ANSI_2, KEY_2},
    {kVK_ANSI_3, KEY_3},
    {kVK_ANSI_4, KEY_4},
    {kVK_ANSI_5, KEY_5},
    {kVK_ANSI_6, KEY_6},
    {kVK_ANSI_7, KEY_7},
    {kVK_ANSI_8, KEY_8},
    {kVK_ANSI_9, KEY_9},
    {kVK_ANSI_0, KEY_0},
    // punctuation
    {kVK_ANSI_Grave, KEY_GRAVE},
    {kVK_ANSI_Minus, KEY_MINUS},
    {kVK_ANSI_Equal, KEY_EQUAL},
    {kVK_ANSI_LeftBracket, KEY_LEFTBRACE},
    {kVK_ANSI_RightBracket, KEY_RIGHTBRACE},
    {kVK_ANSI_Backslash, KEY_BACKSLASH},
    {kVK_ANSI_Semicolon, KEY_SEMICOLON},
    {kVK_ANSI_Quote, KEY_APOSTROPHE},
    {kVK_ANSI_Comma, KEY_COMMA},
    {kVK_ANSI_Period, KEY_DOT},
    {kVK_ANSI_Slash, KEY_SLASH},
    {kVK_ISO_Section, KEY_102ND},
    {kVK_JIS_Yen, KEY_YEN},
    {kVK_JIS_Underscore, KEY_RO},
    // what works on texts
    {kVK_Escape, KEY_ESC},
    {kVK_Tab, KEY_TAB},
    {kVK_Space, KEY_SPACE},
    {kVK_Return, KEY_ENTER},
    {kVK_Delete, KEY_BACKSPACE},
    {kVK_JIS_Eisu, KEY_HANJA},
    {kVK_JIS_Kana, KEY_HANGEUL},
    // modifiers
    {kVK_Command, KEY_LEFTMETA},
    {kVK_RightCommand, KEY_RIGHTMETA},
    {kVK_Shift, KEY_LEFTSHIFT},
    {kVK_RightShift, KEY_RIGHTSHIFT},
    {kVK_Option, KEY_LEFTALT},
    {kVK_RightOption, KEY_RIGHTALT},
    {kVK_Control, KEY_LEFTCTRL},
    {kVK_RightControl, KEY_RIGHTCTRL},
    {kVK_CapsLock, KEY_CAPSLOCK},
    // function keys
    {kVK_F1, KEY_F1},
    {kVK_F2, KEY_F2},
    {kVK_F3, KEY_F3},
    {kVK_F4, KEY_F4},
    {kVK_F5, KEY_F5},
    {kVK_F6, KEY_F6},
    {kVK_F7, KEY_F7},
    {kVK_F8, KEY_F8},
    {kVK_F9, KEY_F9},
    {kVK_F10, KEY_F10},
    {kVK_F11, KEY_F11},
    {kVK_F12, KEY_F12},
    {kVK_F13, KEY_F13},
    {kVK_F14, KEY_F14},
    {kVK_F15, KEY_F15},
    {kVK_F16, KEY_F16},
    {kVK_F17, KEY_F17},
    {kVK_F18, KEY_F18},
    {kVK_F19, KEY_F19},
    {kVK_F20, KEY_F20},
    // print, scroll lock and pause sit where F13 to F15 do
    {kVK_F13, KEY_SYSRQ},
    {kVK_F14, KEY_SCROLLLOCK},
    {kVK_F15, KEY_PAUSE},
    // what moves about
    {kVK_Help, KEY_INSERT},
    {kVK_Home, KEY_HOME},
    {kVK_PageUp, KEY_PAGEUP},
    {kVK_ForwardDelete, KEY_DELETE},
    {kVK_End, KEY_END},
    {kVK_PageDown, KEY_PAGEDOWN},
    {kVK_ContextualMenu, KEY_COMPOSE},
    {kVK_LeftArrow, KEY_LEFT},
    {kVK_RightArrow, KEY_RIGHT},
    {kVK_DownArrow, KEY_DOWN},
    {kVK_UpArrow, KEY_UP},
    // keypad
    {kVK_ANSI_Keypad0, KEY_KP0},
    {kVK_ANSI_Keypad1, KEY_KP1},
    {kVK_ANSI_Keypad2, KEY_KP2},
    {kVK_ANSI_Keypad3, KEY_KP3},
    {kVK_ANSI_Keypad4, KEY_KP4},
    {kVK_ANSI_Keypad5, KEY_KP5},
    {kVK_ANSI_Keypad6, KEY_KP6},
    {kVK_ANSI_Keypad7, KEY_KP7},
    {kVK_ANSI_Keypad8, KEY_KP8},
    {kVK_ANSI_Keypad9, KEY_KP9},
    {kVK_ANSI_KeypadDecimal, KEY_KPDOT},
    {kVK_ANSI_KeypadPlus, KEY_KPPLUS},
    {kVK_ANSI_KeypadMinus, KEY_KPMINUS},
    {kVK_ANSI_KeypadMultiply, KEY_KPASTERISK},
    {kVK_ANSI_KeypadDivide, KEY_KPSLASH},
    {kVK_ANSI_KeypadEnter, KEY_KPENTER},
    {kVK_ANSI_KeypadEquals, KEY_KPEQUAL},
    {kVK_ANSI_KeypadClear, KEY_NUMLOCK},
    {kVK_JIS_KeypadComma, KEY_KPCOMMA},
    {kVK_JIS_KeypadComma, KEY_KPJPCOMMA},
    // loudness
    {kVK_VolumeUp, KEY_VOLUMEUP},
    {kVK_VolumeDown, KEY_VOLUMEDOWN},
    {kVK_Mute, KEY_MUTE},
};

constexpr int kernelToX = 8;

struct Table {
    std::array<std::int8_t, 256> virtualKeys{};
    std::array<XKeyCode, 128> positions{};

    constexpr Table() {
        for (std::int8_t &key : virtualKeys)
            key = noKey;
        for (const Row &row : rows) {
            const auto position = static_cast<XKeyCode>(row.kernelKey + kernelToX);
            virtualKeys[position] = row.virtualKey;
            XKeyCode &posted = positions[static_cast<std::uint8_t>(row.virtualKey)];
            if (posted == 0)
                posted = position;
        }
    }
};

constexpr Table table;

} // namespace

int virtualKeyOf(XKeyCode position) {
    return table.virtualKeys[position];
}

XKeyCode positionOf(int virtualKey) {
    return virtualKey >= 0 && virtualKey < 128 ? table.positions[static_cast<std::size_t>(virtualKey)]
                                               : XKeyCode{0};
}

} // namespace vexa::x11
