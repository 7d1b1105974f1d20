// SPDX-License-Identifier: MIT
#include "platform/SessionInput.h"

#include "platform/mac/Consent.h"

#include <QtDebug>

namespace vexa::platform {

// Taps and posts are the system's own. Without the user's consent it may hand out a tap that reports the
// pointer but no keys, which would go unnoticed until the pen is pressed.
void useSessionInput(const ScreenPlace &) {
    const std::string obstacle = sessionInputObstacle();
    if (!obstacle.empty() && !isAllowed("CGRequestListenEventAccess"))
        qWarning("%s", obstacle.c_str());
}

// Its events are in global points already.
void followPrimaryScreen(const ScreenPlace &) {}

std::string sessionInputObstacle() {
    if (isAllowed("CGPreflightListenEventAccess"))
        return {};
    return "the pen cannot be heard: allow Input Monitoring in the privacy settings, then start the program "
           "again";
}

} // namespace vexa::platform
