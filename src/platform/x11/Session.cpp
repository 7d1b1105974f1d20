// SPDX-License-Identifier: MIT
#include "platform/Session.h"

#include <QByteArray>
#include <X11/Xlib.h>
#include <stdexcept>
#include <string>

namespace vexa::platform {

void prepareSession() {
    // Without a display the toolkit aborts with a core dump, so the program looks first.
    Display *const display = XOpenDisplay(nullptr);
    if (!display) {
        throw std::runtime_error(std::string("cannot reach the X display \"") + XDisplayName(nullptr) +
                                 "\" (is DISPLAY set, and is the X server running?)");
    }
    XCloseDisplay(display);

    // The pen is heard through the X server, so the windows belong there too, also where a Wayland session
    // offers itself to the toolkit.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    // The texts are sized in points of macOS, where a point is a pixel of the layout.
    qputenv("QT_FONT_DPI", "72");
}

} // namespace vexa::platform
