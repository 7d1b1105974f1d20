// SPDX-License-Identifier: MIT
#include "platform/x11/input/KeyMeaning.h"

#include "platform/x11/input/Connection.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include <xcb/xcb.h>

namespace vexa::x11 {

namespace {

struct Meaning {
    int virtualKey;
    xcb_keysym_t symbol;
};

// Of the keys that control a slide show.
constexpr Meaning meanings[] = {
    {kVK_Escape, 0xff1b},
    {kVK_F5, 0xffc2},
    {kVK_PageUp, 0xff55},
    {kVK_Space, 0x0020},
};

} // namespace

XKeyCode keyThatMeans(const Connection &connection, int virtualKey) {
    const XKeyCode usual = positionOf(virtualKey);
    const auto *const meaning =
        std::find_if(std::begin(meanings), std::end(meanings),
                     [=](const Meaning &row) { return row.virtualKey == virtualKey; });
    if (meaning == std::end(meanings))
        return usual;
    xcb_connection_t *x = connection.get();
    const xcb_setup_t *const setup = xcb_get_setup(x);
    const int first = setup->min_keycode;
    const int keys = setup->max_keycode - first + 1;
    const Reply<xcb_get_keyboard_mapping_reply_t> map(xcb_get_keyboard_mapping_reply(
        x, xcb_get_keyboard_mapping(x, setup->min_keycode, static_cast<std::uint8_t>(keys)), nullptr));
    const std::ptrdiff_t perKey = map ? map->keysyms_per_keycode : 0;
    if (perKey == 0)
        return usual;
    const xcb_keysym_t *const symbols = xcb_get_keyboard_mapping_keysyms(map.get());
    const auto means = [&](int key) {
        return symbols[(key - first) * perKey] == meaning->symbol; // without modifiers
    };
    if (means(usual))
        return usual;
    for (int key = first; key < first + keys; ++key)
        if (means(key))
            return static_cast<XKeyCode>(key);
    return usual;
}

} // namespace vexa::x11
