// SPDX-License-Identifier: MIT
#include "platform/x11/input/ButtonMap.h"

#include "platform/x11/input/Connection.h"

#include <algorithm>
#include <vector>

#include <xcb/xcb.h>

namespace vexa::x11 {

namespace {

/// Programs' buttons, in the order of the devices'.
std::vector<std::uint8_t> meanings(const Connection &connection) {
    xcb_connection_t *x = connection.get();
    const Reply<xcb_get_pointer_mapping_reply_t> map(
        xcb_get_pointer_mapping_reply(x, xcb_get_pointer_mapping(x), nullptr));
    if (!map)
        return {};
    const std::uint8_t *const begin = xcb_get_pointer_mapping_map(map.get());
    return {begin, begin + xcb_get_pointer_mapping_map_length(map.get())};
}

} // namespace

std::uint8_t meaningOfButton(const Connection &connection, std::uint8_t button) {
    const std::vector<std::uint8_t> all = meanings(connection);
    return button == 0 || button > all.size() ? button : all[button - 1U];
}

std::uint8_t buttonThatMeansFirst(const Connection &connection) {
    constexpr std::uint8_t first = XCB_BUTTON_INDEX_1;
    const std::vector<std::uint8_t> all = meanings(connection);
    const auto found = std::find(all.begin(), all.end(), first);
    return found == all.end() ? first : static_cast<std::uint8_t>(found - all.begin() + 1);
}

} // namespace vexa::x11
