// SPDX-License-Identifier: MIT
#include "platform/SessionInput.h"

#include "platform/mac/AppNap.h"
#include "platform/mac/Consent.h"

#include <QtDebug>

namespace vexa::platform {

// Taps and posts are the system's own. Without the user's consent it may hand out a tap that reports the
// pointer but no keys, and posted keys go nowhere; either would go unnoticed until the pen is pressed, before
// an audience. One question at a time: a start that cannot listen ends, and the next one asks for the other.
void useSessionInput(const ScreenPlace &) {
    preventAppNap();
    const std::string obstacle = sessionInputObstacle();
    if (!obstacle.empty() && !isAllowed("CGRequestListenEventAccess"))
        qWarning("%s", obstacle.c_str());
    else if (!isAllowed("CGPreflightPostEventAccess") && !isAllowed("CGRequestPostEventAccess"))
        qWarning("the slide show cannot be controlled: allow Accessibility in the privacy settings");
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
