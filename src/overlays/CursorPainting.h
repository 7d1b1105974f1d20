// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QRect>

namespace vexa {

/// Paints a pointer's picture into a picture of the screen.
///
/// `screen` shows `area` (points of the desktop), `pointer` is where the pointer stands there. `cursor` holds
/// words of 0xAARRGGBB, of which the first `size` columns and rows count; a picture without them is left out
/// where they are missing. Words are taken as they stand: no blending, so a soft shadow (black, but not
/// opaque) is left out.
void paintCursor(QImage &screen, const QRect &area, const QImage &cursor, const QSize &size,
                 const QPoint &pointer);

} // namespace vexa
