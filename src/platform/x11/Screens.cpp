// SPDX-License-Identifier: MIT
#include "platform/Screens.h"

#include <QScreen>

namespace vexa::platform {

// The toolkit gives a screen's place in device pixels at any scale, its size in points.
ScreenPlace placeOf(const QScreen &screen) {
    const QRect geometry = screen.geometry();
    const double scale = screen.devicePixelRatio();
    return {{geometry.x(), geometry.y()},
            {qRound(geometry.width() * scale), qRound(geometry.height() * scale)},
            scale};
}

} // namespace vexa::platform
