// SPDX-License-Identifier: MIT
#include "platform/x11/input/Keyboards.h"

#include "platform/x11/input/Connection.h"

#include <string_view>

#include <xcb/xcb.h>
#include <xcb/xinput.h>

namespace vexa::x11 {

namespace {

void addKeys(KeySet &keys, const xcb_input_query_device_state_reply_t *state) {
    auto part = xcb_input_query_device_state_classes_iterator(state);
    for (; part.rem > 0; xcb_input_input_state_next(&part))
        if (part.data->class_id == XCB_INPUT_INPUT_CLASS_KEY)
            keys.add(reinterpret_cast<const xcb_input_key_state_t *>(part.data)->keys);
}

/// The session's devices one by one: take(id, use, isFaking).
template<typename Take> void eachDevice(const Connection &connection, Take take) {
    if (!connection.has(xcb_input_id))
        return;
    xcb_connection_t *x = connection.get();
    const Reply<xcb_input_list_input_devices_reply_t> list(
        xcb_input_list_input_devices_reply(x, xcb_input_list_input_devices(x), nullptr));
    if (!list)
        return;
    auto device = xcb_input_list_input_devices_devices_iterator(list.get());
    auto name = xcb_input_list_input_devices_names_iterator(list.get());
    for (; device.rem > 0; xcb_input_device_info_next(&device), xcb_str_next(&name)) {
        const std::string_view text(xcb_str_name(name.data),
                                    static_cast<std::size_t>(xcb_str_name_length(name.data)));
        take(device.data->device_id, device.data->device_use, text.find("XTEST") != std::string_view::npos);
    }
}

} // namespace

std::vector<std::uint8_t> realKeyboards(const Connection &connection) {
    std::vector<std::uint8_t> keyboards;
    eachDevice(connection, [&keyboards](std::uint8_t id, std::uint8_t use, bool isFaking) {
        if (use == XCB_INPUT_DEVICE_USE_IS_X_EXTENSION_KEYBOARD && !isFaking)
            keyboards.push_back(id);
    });
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

Holders holdersOfKeys(const Connection &connection) {
    xcb_connection_t *x = connection.get();
    struct Asked {
        xcb_input_query_device_state_cookie_t cookie;
        bool isFaking;
    };
    std::vector<Asked> all;
    eachDevice(connection, [x, &all](std::uint8_t id, std::uint8_t use, bool isFaking) {
        // A keyboard that is a pointer too is listed as one; what stands for several devices is left out.
        if (use != XCB_INPUT_DEVICE_USE_IS_X_KEYBOARD && use != XCB_INPUT_DEVICE_USE_IS_X_POINTER)
            all.push_back({xcb_input_query_device_state(x, id), isFaking});
    });
    Holders holders;
    if (!connection.has(xcb_input_id))
        holders.programs = keysDown(connection);
    for (const Asked &asked : all) {
        const Reply<xcb_input_query_device_state_reply_t> state(
            xcb_input_query_device_state_reply(x, asked.cookie, nullptr));
        if (state)
            addKeys(asked.isFaking ? holders.programs : holders.keyboards, state.get());
    }
    return holders;
}

} // namespace vexa::x11
