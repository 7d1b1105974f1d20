// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QCursor>
#include <QPixmap>

/// What the pointer looks like while drawing. Sizes are points. GUI thread.
namespace vexa {

/// A disc of the pen's width and colour; null for a width of 0.
QPixmap penPicture(int width, const QColor &colour, qreal devicePixelRatio);

/// A white disc with a black rim.
QPixmap eraserPicture(int size, qreal devicePixelRatio);

/// A cursor that points with the middle of the picture; the arrow when there is no picture.
QCursor cursorFromPicture(const QPixmap &picture);

} // namespace vexa
