// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>

namespace vexa {

/// What the primary screen shows at this moment, and nothing of other screens: device pixels, with the
/// screen's device pixel ratio set. Takes as long as transferring a whole screen (some milliseconds at
/// 1080p). Null when the screen cannot be read. GUI thread.
QPixmap pictureOfPrimaryScreen();

} // namespace vexa
