// SPDX-License-Identifier: MIT
#include "platform/Session.h"

#include "platform/SessionInput.h"

#include <QByteArray>
#include <stdexcept>

namespace vexa::platform {

void prepareSession() {
    // Looked at first, since the toolkit aborts with a core dump where there is no display.
    if (const std::string obstacle = sessionInputObstacle(); !obstacle.empty())
        throw std::runtime_error(obstacle);

    // The pen is heard through the X server, so the windows belong there too, also where a Wayland session
    // offers itself to the toolkit.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    // The texts are sized in points of macOS, where a point is a pixel of the layout.
    qputenv("QT_FONT_DPI", "72");
}

} // namespace vexa::platform
