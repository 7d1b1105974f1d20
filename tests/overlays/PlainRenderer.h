// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QPoint>

/// The screens that the held tools must show, drawn the plain way: everything anew for each picture, nothing
/// kept, nothing left out. Positions and sizes are points; the screens come in device pixels.
namespace vexa::test {

QImage plainLaser(const QPixmap &background, const QPoint &at, int size, const QColor &colour);
QImage plainSpotlight(const QPixmap &background, const QPoint &at, int size, int alpha);
QImage plainMagnifier(const QPixmap &background, const QPoint &at, int size, const QColor &ring);

} // namespace vexa::test
