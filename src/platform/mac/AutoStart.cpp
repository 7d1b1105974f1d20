// SPDX-License-Identifier: MIT
#include "platform/AutoStart.h"

namespace vexa::platform {

QString autoStartCommand(bool enable) {
    const QString programs = QStringLiteral("osascript /Applications/VexaOrbilo.app/Contents/MacOS/");
    return programs +
           (enable ? QLatin1String("setAutoStartOpen.scpt") : QLatin1String("setAutoStartClose.scpt"));
}

} // namespace vexa::platform
