// SPDX-License-Identifier: MIT
#pragma once

class QPainter;
class QRectF;

namespace vexa {

constexpr int slideCount = 3;

/// Paints slide `number` (0 to slideCount - 1) into the rectangle, which is taken to be 16 by 9.
void paintSlide(QPainter &painter, const QRectF &area, int number);

} // namespace vexa
