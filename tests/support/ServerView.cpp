// SPDX-License-Identifier: MIT
#include "support/ServerView.h"

#include <optional>

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/shape.h>

namespace vexa::test {
namespace {

Display *connection() {
    static Display *const display = XOpenDisplay(nullptr);
    return display;
}

std::optional<unsigned long> property(Window window, const char *name, Atom type) {
    Atom actual = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char *data = nullptr;
    XGetWindowProperty(connection(), window, XInternAtom(connection(), name, False), 0, 1, False, type,
                       &actual, &format, &count, &left, &data);
    std::optional<unsigned long> value;
    if (count == 1)
        value = *reinterpret_cast<const unsigned long *>(data);
    if (data)
        XFree(data);
    return value;
}

} // namespace

double opacityOnServer(WId window) {
    const auto value = property(window, "_NET_WM_WINDOW_OPACITY", XA_CARDINAL);
    return value ? double(*value & 0xFFFFFFFFU) / double(0xFFFFFFFFU) : 1.0;
}

bool hasAreaOnServer(WId window) {
    int count = 0;
    int ordering = 0;
    XRectangle *rectangles = XShapeGetRectangles(connection(), window, ShapeBounding, &count, &ordering);
    if (rectangles)
        XFree(rectangles);
    return count > 0;
}

bool isUnmanagedOnServer(WId window) {
    XWindowAttributes attributes;
    return XGetWindowAttributes(connection(), window, &attributes) && attributes.override_redirect == True;
}

bool isToldToHaveNoShadow(WId window) {
    // Its own four widths around the window; their values do not matter, a compositing manager asks whether
    // they are there.
    Atom actual = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char *data = nullptr;
    XGetWindowProperty(connection(), window, XInternAtom(connection(), "_GTK_FRAME_EXTENTS", False), 0, 4,
                       False, XA_CARDINAL, &actual, &format, &count, &left, &data);
    if (data)
        XFree(data);
    return count == 4 && property(window, "_COMPTON_SHADOW", XA_CARDINAL) == 0UL;
}

bool isWindowManagerRunning() {
    return property(DefaultRootWindow(connection()), "_NET_SUPPORTING_WM_CHECK", XA_WINDOW).has_value();
}

} // namespace vexa::test
