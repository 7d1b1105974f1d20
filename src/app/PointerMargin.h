// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QSize>
#include <algorithm>

namespace vexa {

/// How far, in points, the pointer is kept from the edges of the screen while a held tool follows it: at the
/// very edge the system would stop reporting its moves.
constexpr int pointerMargin = 4;

/// The nearest place to the point that keeps the margin on a screen of this size.
inline QPoint withinMargin(const QPoint &point, const QSize &screen) {
    return {std::min(std::max(point.x(), pointerMargin), screen.width() - pointerMargin),
            std::min(std::max(point.y(), pointerMargin), screen.height() - pointerMargin)};
}

} // namespace vexa
