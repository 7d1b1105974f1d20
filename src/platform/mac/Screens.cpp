// SPDX-License-Identifier: MIT
#include "platform/Screens.h"

#include <QScreen>

namespace vexa::platform {

// Events and screens share the global coordinates, which are points on all screens.
ScreenPlace placeOf(const QScreen &screen) {
    const QRect geometry = screen.geometry();
    return {{geometry.x(), geometry.y()}, {geometry.width(), geometry.height()}, 1};
}

} // namespace vexa::platform
