// SPDX-License-Identifier: MIT
#include "annotation/StrokePieces.h"

#include <algorithm>
#include <cmath>

namespace vexa {

namespace {

constexpr int cellShift = 6;

// A line that dwells on the spot would keep all its pieces near its tip.
constexpr std::size_t longestTail = 24;

void append(QPainterPath &path, const StrokePieces::Piece &piece) {
    path.quadTo(piece.control, piece.end);
}

} // namespace

StrokePieces::StrokePieces(const QSize &pixels)
    : m_area(QPoint(0, 0), pixels)
    , m_columns((pixels.width() >> cellShift) + 1)
    , m_cells(static_cast<std::size_t>(m_columns) *
              static_cast<std::size_t>((pixels.height() >> cellShift) + 1)) {}

void StrokePieces::clear() {
    m_pieces.clear();
    for (auto &cell : m_cells)
        cell.clear();
}

void StrokePieces::add(const Piece &piece) {
    forCells(piece.reach, [this](std::size_t cell) { m_cells[cell].push_back(m_pieces.size()); });
    m_pieces.push_back(piece);
}

QPainterPath StrokePieces::tail(qreal distance) const {
    const std::size_t newest = m_pieces.size() - 1;
    const QPointF tip = m_pieces[newest].start;
    QPainterPath path;
    std::size_t first = newest;
    while (!m_pieces[first].begins && newest - first < longestTail) {
        const QPointF way = m_pieces[first].start - tip;
        if (std::hypot(way.x(), way.y()) > distance)
            break;
        --first;
    }
    path.moveTo(m_pieces[first].start);
    for (std::size_t i = first; i < newest; ++i)
        append(path, m_pieces[i]);
    return path;
}

std::optional<QPainterPath> StrokePieces::linesThrough(const QRect &area, int limit) const {
    std::vector<std::size_t> near;
    int length = 0;
    forCells(area, [&](std::size_t cell) {
        for (const std::size_t i : m_cells[cell]) {
            if (length > limit || !m_pieces[i].reach.intersects(area))
                continue;
            near.push_back(i);
            length += m_pieces[i].reach.width() + m_pieces[i].reach.height();
        }
    });
    if (length > limit)
        return std::nullopt;
    // A piece that ends inside needs its neighbours, or its cap would show.
    for (std::size_t n = near.size(); n > 0; --n) {
        const std::size_t i = near[n - 1];
        if (!m_pieces[i].begins)
            near.push_back(i - 1);
        if (i + 1 < m_pieces.size() && !m_pieces[i + 1].begins)
            near.push_back(i + 1);
    }
    std::sort(near.begin(), near.end());
    near.erase(std::unique(near.begin(), near.end()), near.end());

    QPainterPath path;
    for (std::size_t i = 0; i < near.size(); ++i) {
        const Piece &piece = m_pieces[near[i]];
        if (i == 0 || near[i] != near[i - 1] + 1 || piece.begins)
            path.moveTo(piece.start);
        append(path, piece);
    }
    return path;
}

template<typename Visit> void StrokePieces::forCells(const QRect &area, Visit visit) const {
    const QRect inside = area & m_area;
    if (inside.isEmpty())
        return;
    for (int row = inside.top() >> cellShift; row <= inside.bottom() >> cellShift; ++row)
        for (int column = inside.left() >> cellShift; column <= inside.right() >> cellShift; ++column) {
            const int cell = row * m_columns + column;
            visit(static_cast<std::size_t>(cell));
        }
}

} // namespace vexa
