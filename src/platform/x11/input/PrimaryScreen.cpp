// SPDX-License-Identifier: MIT
#include "platform/x11/input/PrimaryScreen.h"

#include <cmath>
#include <xcb/randr.h>

#include "platform/x11/input/Connection.h"

namespace vexa::x11 {

Pixels PrimaryScreen::toPixels(Points points) const {
    return {static_cast<int>(std::lround(points.x * pixelsPerPoint)) + origin.x,
            static_cast<int>(std::lround(points.y * pixelsPerPoint)) + origin.y};
}

Pixels primaryOrigin(const Connection &connection) {
    if (!connection.has(xcb_randr_id))
        return {0, 0};
    xcb_connection_t *x = connection.get();
    const auto version = xcb_randr_query_version(x, 1, 5);
    const auto monitors = xcb_randr_get_monitors(x, connection.root(), true);
    const Reply<xcb_randr_query_version_reply_t> versionReply(
        xcb_randr_query_version_reply(x, version, nullptr));
    xcb_generic_error_t *error = nullptr;
    const Reply<xcb_randr_get_monitors_reply_t> reply(xcb_randr_get_monitors_reply(x, monitors, &error));
    std::free(error);
    if (!reply)
        return {0, 0};

    auto monitor = xcb_randr_get_monitors_monitors_iterator(reply.get());
    if (monitor.rem == 0)
        return {0, 0};
    Pixels origin{monitor.data->x, monitor.data->y};
    for (; monitor.rem > 0; xcb_randr_monitor_info_next(&monitor))
        if (monitor.data->primary)
            origin = {monitor.data->x, monitor.data->y};
    return origin;
}

} // namespace vexa::x11
