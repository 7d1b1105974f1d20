// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPixmap>
#include <QPoint>
#include <QSize>

namespace vexa::test {

/// How long to wait for what must come, in milliseconds: long, as the machine may be busy.
constexpr int patience = 60000;

/// A picture of which hardly two neighbouring pixels are alike, so that nothing can be a pixel off unseen.
/// Size in device pixels, with the ratio set.
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
