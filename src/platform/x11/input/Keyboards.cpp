// SPDX-License-Identifier: MIT
#include "platform/x11/input/Keyboards.h"

#include <string_view>
#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include "platform/x11/input/Connection.h"

namespace vexa::x11 {

namespace {

void addKeys(KeySet &keys, const xcb_input_query_device_state_reply_t *state) {
    auto part = xcb_input_query_device_state_classes_iterator(state);
    for (; part.rem > 0; xcb_input_input_state_next(&part))
        if (part.data->class_id == XCB_INPUT_INPUT_CLASS_KEY)
            keys.add(reinterpret_cast<const xcb_input_key_state_t *>(part.data)->keys);
}

} // namespace

std::vector<std::uint8_t> realKeyboards(const Connection &connection) {
    std::vector<std::uint8_t> keyboards;
    if (!connection.has(xcb_input_id))
        return keyboards;
    xcb_connection_t *x = connection.get();
    const Reply<xcb_input_list_input_devices_reply_t> list(
        xcb_input_list_input_devices_reply(x, xcb_input_list_input_devices(x), nullptr));
    if (!list)
        return keyboards;
    auto device = xcb_input_list_input_devices_devices_iterator(list.get());
    auto name = xcb_input_list_input_devices_names_iterator(list.get());
    for (; device.rem > 0; xcb_input_device_info_next(&device), xcb_str_next(&name)) {
        const std::string_view text(xcb_str_name(name.data),
                                    static_cast<std::size_t>(xcb_str_name_length(name.data)));
        if (device.data->device_use == XCB_INPUT_DEVICE_USE_IS_X_EXTENSION_KEYBOARD &&
            text.find("XTEST") == std::string_view::npos)
            keyboards.push_back(device.data->device_id);
    }
    return keyboards;
}

KeySet keysDown(const Connection &connection) {
    xcb_connection_t *x = connection.get();
    const Reply<xcb_query_keymap_reply_t> reply(xcb_query_keymap_reply(x, xcb_query_keymap(x), nullptr));
    KeySet keys;
    if (reply)
        keys.add(reply->keys);
    return keys;
}

KeySet keysHeldByHand(const Connection &connection) {
    KeySet keys;
    xcb_connection_t *x = connection.get();
    std::vector<xcb_input_query_device_state_cookie_t> cookies;
    for (const std::uint8_t keyboard : realKeyboards(connection))
        cookies.push_back(xcb_input_query_device_state(x, keyboard));
    for (const auto cookie : cookies) {
        const Reply<xcb_input_query_device_state_reply_t> state(
            xcb_input_query_device_state_reply(x, cookie, nullptr));
        if (state)
            addKeys(keys, state.get());
    }
    return keys;
}

} // namespace vexa::x11
