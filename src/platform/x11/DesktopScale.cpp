// SPDX-License-Identifier: MIT
#include "platform/x11/DesktopScale.h"

#include "platform/x11/input/Connection.h"

#include <algorithm>
#include <cmath>

#include <X11/Xlib.h>
#include <xcb/randr.h>

namespace vexa::platform {

namespace {

constexpr double usualDpi = 96;
constexpr double largestDpi = 10 * usualDpi;
constexpr double panelWidth = 999, panelHeight = 650; // points
constexpr double stepsOfOne = 4;

/// Dots per inch, as the desktop's settings give them in the X resources. Empty when they do not.
QByteArray desktopResolution() {
    Display *const display = XOpenDisplay(nullptr);
    if (!display)
        return {};
    QByteArray resolution(XGetDefault(display, "Xft", "dpi"));
    XCloseDisplay(display);
    return resolution;
}

using x11::Connection;
using x11::Reply;

/// Of what the output shows; {0, 0} when it is off.
Pixels sizeOf(const Connection &connection, xcb_randr_output_t output, xcb_timestamp_t configuration) {
    xcb_connection_t *x = connection.get();
    const Reply<xcb_randr_get_output_info_reply_t> info(
        xcb_randr_get_output_info_reply(x, xcb_randr_get_output_info(x, output, configuration), nullptr));
    if (!info || info->crtc == XCB_NONE)
        return {0, 0};
    const Reply<xcb_randr_get_crtc_info_reply_t> shown(
        xcb_randr_get_crtc_info_reply(x, xcb_randr_get_crtc_info(x, info->crtc, configuration), nullptr));
    return shown ? Pixels{shown->width, shown->height} : Pixels{0, 0};
}

/// Of the primary output, else of the first one that is on, which is the toolkit's choice too; {0, 0} when
/// the server does not tell.
Pixels primarySize(const Connection &connection) {
    if (!connection.has(xcb_randr_id))
        return {0, 0};
    xcb_connection_t *x = connection.get();
    // The protocol wants the client's version before any other request.
    const Reply<xcb_randr_query_version_reply_t> version(
        xcb_randr_query_version_reply(x, xcb_randr_query_version(x, 1, 3), nullptr));
    const Reply<xcb_randr_get_output_primary_reply_t> primary(
        xcb_randr_get_output_primary_reply(x, xcb_randr_get_output_primary(x, connection.root()), nullptr));
    const Reply<xcb_randr_get_screen_resources_current_reply_t> resources(
        xcb_randr_get_screen_resources_current_reply(
            x, xcb_randr_get_screen_resources_current(x, connection.root()), nullptr));
    if (!primary || !resources)
        return {0, 0};
    Pixels size = sizeOf(connection, primary->output, resources->config_timestamp);
    const xcb_randr_output_t *outputs = xcb_randr_get_screen_resources_current_outputs(resources.get());
    const int count = xcb_randr_get_screen_resources_current_outputs_length(resources.get());
    for (int i = 0; i < count && size.x == 0; ++i)
        size = sizeOf(connection, outputs[i], resources->config_timestamp);
    return size;
}

} // namespace

double scaleFor(const QByteArray &dotsPerInch, Pixels screen) {
    const double dpi = dotsPerInch.toDouble();
    if (!(dpi >= usualDpi && dpi <= largestDpi)) // also what is no number at all
        return 1;
    const double wanted = std::round(dpi / usualDpi * stepsOfOne);
    const double fitting = std::floor(std::min(screen.x / panelWidth, screen.y / panelHeight) * stepsOfOne);
    return std::max(std::min(wanted, fitting), stepsOfOne) / stepsOfOne;
}

double desktopScale() {
    const auto connection = Connection::open();
    return connection ? scaleFor(desktopResolution(), primarySize(*connection)) : 1;
}

} // namespace vexa::platform
