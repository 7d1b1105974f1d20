// SPDX-License-Identifier: MIT
#pragma once

#include "annotation/StrokePieces.h"

#include <QImage>
#include <QPainterPath>
#include <QPen>
#include <QPointF>
#include <QRect>
#include <QSize>

#include <functional>
#include <vector>

namespace vexa {

/// How much of each pixel the stroke that is being drawn covers, as if its whole path were filled at once,
/// kept up to date at a price that does not depend on how long the stroke has become.
///
/// A fill sums the signed areas of all outlines, so pieces far from the tip add a constant to the sum around
/// it. What a new piece changes is therefore the difference between two short paths: the last few pieces with
/// the new one and without it. Both begin at the same place, so the cap there drops out.
///
/// Where nothing but those few pieces covers a pixel, the short path is the whole truth. Where older ink of
/// the stroke covers a part of it as well, the difference is added, which is true but for the fill's
/// rounding; and where the sum is so small that rounding would show in the settled ink, all lines through
/// those pixels are filled, unless the place is too crowded.
///
/// Sizes are points on the outside and device pixels on the inside. Any thread, no widget.
class StrokeCoverage {
public:
    StrokeCoverage(const QSize &pixels, qreal devicePixelRatio);

    /// The pen of the pieces to come.
    void setPen(const QPen &pen) { m_pen = pen; }

    /// Nothing is covered any more.
    void clear();

    /// Begins a new line at the point, which covers nothing yet.
    void moveTo(const QPointF &point);

    using Changed = std::function<void(int x, int y)>;

    /// Adds a quadratic piece from where the line ends. Calls changed for every pixel whose coverage is now
    /// another, and returns an area that holds them all.
    QRect quadTo(const QPointF &control, const QPointF &end, const Changed &changed);

    /// 0 to 255 for each pixel of one row.
    const uchar *row(int y) const { return m_coverage.constScanLine(y); }

private:
    QRect reach(const QPointF &start, const QPointF &control, const QPointF &end) const;
    void fill(const QPainterPath &path, const QRect &pixels);
    void refill(const std::vector<QPoint> &pixels, const Changed &changed);

    QPen m_pen;
    QPointF m_end;
    bool m_lineBegins = true;
    StrokePieces m_pieces;
    QImage m_coverage;
    QImage m_scratch; ///< in place with the layer: moved coordinates would round differently
    std::vector<uchar> m_before;
    std::vector<QPoint> m_doubtful;
};

} // namespace vexa
