// SPDX-License-Identifier: MIT
#include "platform/AutoStart.h"

namespace vexa::platform {

QString autoStartCommand(bool enable) {
    const QString programs = QStringLiteral("osascript /Applications/VexaOrbilo.app/Contents/MacOS/");
    return programs +
           (enable ? QLatin1String("setAutoStartOpen.scpt") : QLatin1String("setAutoStartClose.scpt"));
}

// The first script has to wait for the user, whom the system asks whether it may talk to System Events.
std::chrono::milliseconds autoStartLimit() {
    return std::chrono::minutes(2);
}

} // namespace vexa::platform
