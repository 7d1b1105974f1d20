// SPDX-License-Identifier: MIT
#include "platform/x11/NativePixels.h"

#include "platform/x11/input/Connection.h"

#include <QX11Info>

#include <xcb/xcb.h>

namespace vexa::platform {

const xcb_screen_t &screenOf(xcb_connection_t *connection) {
    int number = QX11Info::appScreen();
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    while (number-- > 0 && screens.rem > 1)
        xcb_screen_next(&screens);
    return *screens.data;
}

namespace {

/// Null when the screen has no such visual of its own depth.
const xcb_visualtype_t *visualOf(const xcb_screen_t &screen, xcb_visualid_t id) {
    for (auto depths = xcb_screen_allowed_depths_iterator(&screen); depths.rem; xcb_depth_next(&depths)) {
        if (depths.data->depth != screen.root_depth)
            continue;
        auto visuals = xcb_depth_visuals_iterator(depths.data);
        for (; visuals.rem; xcb_visualtype_next(&visuals))
            if (visuals.data->visual_id == id)
                return visuals.data;
    }
    return nullptr;
}

int bitsPerPixel(const xcb_setup_t *setup, int depth) {
    for (auto formats = xcb_setup_pixmap_formats_iterator(setup); formats.rem; xcb_format_next(&formats))
        if (formats.data->depth == depth)
            return formats.data->bits_per_pixel;
    return 0;
}

bool isNative(xcb_connection_t *connection, xcb_visualid_t id) {
    constexpr auto ourOrder =
        Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? XCB_IMAGE_ORDER_LSB_FIRST : XCB_IMAGE_ORDER_MSB_FIRST;
    const xcb_setup_t *setup = xcb_get_setup(connection);
    const xcb_screen_t &screen = screenOf(connection);
    const xcb_visualtype_t *visual = visualOf(screen, id);
    return setup->image_byte_order == ourOrder && bitsPerPixel(setup, screen.root_depth) == 32 && visual &&
           visual->red_mask == 0xFF0000 && visual->green_mask == 0xFF00 && visual->blue_mask == 0xFF;
}

} // namespace

bool hasNativePixels(xcb_connection_t *connection) {
    return isNative(connection, screenOf(connection).root_visual);
}

bool hasNativePixels(xcb_connection_t *connection, quint32 window) {
    const x11::Reply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(connection, xcb_get_window_attributes(connection, window), nullptr));
    return attributes && isNative(connection, attributes->visual);
}

} // namespace vexa::platform
