// SPDX-License-Identifier: MIT
#include "overlays/ScreenPicture.h"

#include "platform/ScreenCapture.h"

namespace vexa {

QPixmap pictureOfPrimaryScreen() {
    return platform::capturePrimaryScreen();
}

} // namespace vexa
