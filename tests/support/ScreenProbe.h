// SPDX-License-Identifier: MIT
#pragma once

#include "support/Patience.h"
#include "support/Pattern.h"

#include <QImage>
#include <QPixmap>
#include <QPoint>
#include <QSize>

namespace vexa::test {

/// The pattern as something to lie behind a window. Size in device pixels, with the ratio set.
QPixmap wall(const QSize &pixels, qreal ratio);

/// The wall for the primary screen.
QPixmap screenWall();

/// What the X server shows, in device pixels and without a ratio, by a connection's own look at the root
/// window.
QImage shownOnScreen();

/// How many pixels differ in colour; all of them when the sizes differ.
int differences(const QImage &one, const QImage &other);

/// True when both colours are equal but for `tolerance` in each channel.
bool alike(QRgb one, QRgb other, int tolerance);

/// The primary screen in points, and how many pixels make one.
QSize screenPoints();
qreal screenRatio();

} // namespace vexa::test
