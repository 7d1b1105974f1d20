// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QRect>
#include <QSize>

#include <optional>
#include <vector>

namespace vexa {

/// The quadratic pieces of a stroke in the order they were drawn, found again by the pixels they may touch.
/// Paths are in points, areas and limits in device pixels. Any thread.
class StrokePieces {
public:
    struct Piece {
        QPointF start, control, end;
        QRect reach; ///< the pixels it may touch
        bool begins; ///< the first piece of a line, which does not go on from the one before
    };

    explicit StrokePieces(const QSize &pixels);

    void clear();
    void add(const Piece &piece);

    /// The end of the newest line, without the newest piece: at least so long that its beginning is farther
    /// away than distance from the newest piece, unless that takes too many pieces.
    QPainterPath tail(qreal distance) const;

    /// All lines through the area, each long enough that its ends lie outside. Nothing when together they
    /// reach over more than limit pixels, widths and heights added.
    std::optional<QPainterPath> linesThrough(const QRect &area, int limit) const;

private:
    template<typename Visit> void forCells(const QRect &area, Visit visit) const;

    QRect m_area;
    int m_columns;
    std::vector<Piece> m_pieces;
    std::vector<std::vector<std::size_t>> m_cells; ///< which pieces reach into a square of the layer
};

} // namespace vexa
