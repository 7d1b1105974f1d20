// SPDX-License-Identifier: MIT
#pragma once

#include "support/Patience.h"
#include "support/Pattern.h"

#include <QImage>
#include <QPixmap>
#include <QPoint>
#include <QSize>

#include <optional>

namespace vexa::test {

/// The pattern as something to lie behind a window. Size in device pixels, with the ratio set.
QPixmap wall(const QSize &pixels, qreal ratio);

/// The wall for the primary screen.
QPixmap screenWall();

/// The picture's pixels, without a ratio.
QImage plainImage(const QPixmap &picture);

/// What the X server shows, in device pixels and without a ratio, by a connection's own look at the root
/// window.
QImage shownOnScreen();

/// Waits until the X server shows exactly this; warns of the number of other pixels when it does not.
bool screenBecomes(const QImage &expected);

/// How many pixels differ in colour; all of them when the sizes differ.
int differences(const QImage &one, const QImage &other);

/// True when both colours are equal but for `tolerance` in each channel.
bool alike(QRgb one, QRgb other, int tolerance);

/// How far the middle of a pixel is from a place, both in pixels.
double distance(const QPoint &pixel, const QPointF &place);

/// Whether each pixel of the image is, but for `tolerance` in each channel, as `expected(pixel)` says, which
/// may leave it open.
template<typename Expected> bool isAll(const QImage &image, const Expected &expected, int tolerance = 0) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const std::optional<QRgb> colour = expected(QPoint(x, y));
            if (colour && !alike(image.pixel(x, y), *colour, tolerance))
                return false;
        }
    }
    return !image.isNull();
}

/// The primary screen in points, and how many pixels make one.
QSize screenPoints();
qreal screenRatio();

} // namespace vexa::test
