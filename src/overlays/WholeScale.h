// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>

namespace vexa {

/// The picture with a whole number of pixels to a point, as the held tools cut their pieces by: itself where
/// it has that, otherwise enlarged to the next whole number by repeating pixels. Painted without smoothing it
/// then shows the same pixels as before. `points` is the size of the window that shows it; where the picture
/// ends before the window does, its outermost pixels are repeated. Any thread that may use pixmaps.
QPixmap atWholeScale(const QPixmap &picture, const QSize &points);

} // namespace vexa
