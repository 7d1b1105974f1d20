// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>

namespace vexa {

/// The picture with a whole number of pixels to a point, as the held tools cut their pieces by: itself where
/// it has that, otherwise enlarged to the next whole number by repeating pixels. Painted without smoothing it
/// then shows the same pixels as before. `points` is the screen's size. Any thread that may use pixmaps.
QPixmap atWholeScale(const QPixmap &picture, const QSize &points);

} // namespace vexa
