// SPDX-License-Identifier: MIT
#include "platform/x11/input/KeyTable.h"

#include <array>

namespace vexa::x11 {

namespace {

struct Row {
    std::int8_t virtualKey;
    std::uint8_t kernelKey;
};

// Of several rows with the same virtual key the first one is posted.
constexpr Row rows[] = {
    // letters
    {0, 30},
    {11, 48},
    {8, 46},
    {2, 32},
    {14, 18},
    {3, 33},
    {5, 34},
    {4, 35},
    {34, 23},
    {38, 36},
    {40, 37},
    {37, 38},
    {46, 50},
    {45, 49},
    {31, 24},
    {35, 25},
    {12, 16},
    {15, 19},
    {1, 31},
    {17, 20},
    {32, 22},
    {9, 47},
    {13, 17},
    {7, 45},
    {16, 21},
    {6, 44},
    // digits, 1 to 0
    {18, 2},
    {19, 3},
    {20, 4},
    {21, 5},
    {23, 6},
    {22, 7},
    {26, 8},
    {28, 9},
    {25, 10},
    {29, 11},
    // punctuation: ` - = [ ] \ ; ' , . / and the key left of Z, then the Japanese yen and underscore keys
    {50, 41},
    {27, 12},
    {24, 13},
    {33, 26},
    {30, 27},
    {42, 43},
    {41, 39},
    {39, 40},
    {43, 51},
    {47, 52},
    {44, 53},
    {10, 86},
    {93, 124},
    {94, 89},
    // escape, tab, space, return, backspace, Japanese eisu and kana
    {53, 1},
    {48, 15},
    {49, 57},
    {36, 28},
    {51, 14},
    {102, 123},
    {104, 122},
    // modifiers: command, shift, option, control, each left and right; caps lock
    {55, 125},
    {54, 126},
    {56, 42},
    {60, 54},
    {58, 56},
    {61, 100},
    {59, 29},
    {62, 97},
    {57, 58},
    // F1 to F20
    {122, 59},
    {120, 60},
    {99, 61},
    {118, 62},
    {96, 63},
    {97, 64},
    {98, 65},
    {100, 66},
    {101, 67},
    {109, 68},
    {103, 87},
    {111, 88},
    {105, 183},
    {107, 184},
    {113, 185},
    {106, 186},
    {64, 187},
    {79, 188},
    {80, 189},
    {90, 190},
    // print, scroll lock and pause sit where F13 to F15 do
    {105, 99},
    {107, 70},
    {113, 119},
    // insert (help), home, page up, delete, end, page down, menu
    {114, 110},
    {115, 102},
    {116, 104},
    {117, 111},
    {119, 107},
    {121, 109},
    {110, 127},
    // arrows: left, right, down, up
    {123, 105},
    {124, 106},
    {125, 108},
    {126, 103},
    // keypad: 0 to 9, decimal, plus, minus, times, divide, enter, equals, num lock (clear), comma
    {82, 82},
    {83, 79},
    {84, 80},
    {85, 81},
    {86, 75},
    {87, 76},
    {88, 77},
    {89, 71},
    {91, 72},
    {92, 73},
    {65, 83},
    {69, 78},
    {78, 74},
    {67, 55},
    {75, 98},
    {76, 96},
    {81, 117},
    {71, 69},
    {95, 121},
    {95, 95},
    // volume: up, down, mute
    {72, 115},
    {73, 114},
    {74, 113},
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
