// SPDX-License-Identifier: MIT
#include "platform/ProgramIcon.h"

namespace vexa::platform {

/// A window manager takes the size that it shows.
QIcon programIcon() {
    QIcon icon(QStringLiteral(":/appicon.png"));
    for (const int size : {16, 24, 32, 48, 128, 256})
        icon.addFile(QStringLiteral(":/appicon-%1.png").arg(size));
    return icon;
}

} // namespace vexa::platform
