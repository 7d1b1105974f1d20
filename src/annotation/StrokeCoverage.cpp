// SPDX-License-Identifier: MIT
#include "annotation/StrokeCoverage.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstring>

namespace vexa {

namespace {

// A line that dwells on the spot would keep all its pieces near its tip; older ones are then taken as
// settled.
constexpr std::size_t longestTail = 24;

QImage emptyPlane(const QSize &pixels, qreal devicePixelRatio) {
    QImage plane(pixels, QImage::Format_Alpha8);
    plane.setDevicePixelRatio(devicePixelRatio);
    plane.fill(0);
    return plane;
}

qreal distance(const QPointF &a, const QPointF &b) {
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

} // namespace

StrokeCoverage::StrokeCoverage(const QSize &pixels, qreal devicePixelRatio)
    : m_coverage(emptyPlane(pixels, devicePixelRatio)), m_scratch(emptyPlane(pixels, devicePixelRatio)) {}

void StrokeCoverage::clear() {
    m_coverage.fill(0);
    m_tail.clear();
}

void StrokeCoverage::moveTo(const QPointF &point) {
    m_tail.clear();
    m_end = point;
}

void StrokeCoverage::quadTo(const QPointF &control, const QPointF &end, const Changed &changed) {
    const Piece piece{m_end, control, end};
    m_end = end;
    const QRect pixels = reach(piece) & m_coverage.rect();
    forgetDistantPieces();

    QPainterPath tail;
    tail.moveTo(m_tail.empty() ? piece.start : m_tail.front().start);
    for (const Piece &old : m_tail)
        tail.quadTo(old.control, old.end);
    m_tail.push_back(piece);
    if (pixels.isEmpty())
        return;

    const auto width = static_cast<std::size_t>(pixels.width());
    m_before.resize(width * static_cast<std::size_t>(pixels.height()));
    fill(tail, pixels);
    for (int y = pixels.top(), i = 0; y <= pixels.bottom(); ++y, ++i)
        std::memcpy(m_before.data() + static_cast<std::size_t>(i) * width,
                    m_scratch.constScanLine(y) + pixels.left(), width);
    tail.quadTo(control, end);
    fill(tail, pixels);

    const uchar *before = m_before.data();
    for (int y = pixels.top(); y <= pixels.bottom(); ++y, before += width) {
        const uchar *after = m_scratch.constScanLine(y) + pixels.left();
        if (std::memcmp(before, after, width) == 0)
            continue;
        uchar *total = m_coverage.scanLine(y) + pixels.left();
        for (std::size_t x = 0; x < width; ++x) {
            const int sum = std::clamp(total[x] + after[x] - before[x], 0, 255);
            if (sum == total[x])
                continue;
            total[x] = static_cast<uchar>(sum);
            changed(pixels.left() + static_cast<int>(x), y);
        }
    }
}

/// The pixels that a piece and the joint at its start may touch.
QRect StrokeCoverage::reach(const Piece &piece) const {
    const qreal ratio = m_coverage.devicePixelRatio();
    const qreal margin = m_pen.widthF() / 2 + 2;
    const auto [left, right] = std::minmax({piece.start.x(), piece.control.x(), piece.end.x()});
    const auto [top, bottom] = std::minmax({piece.start.y(), piece.control.y(), piece.end.y()});
    const QRectF points =
        QRectF(QPointF(left, top), QPointF(right, bottom)).adjusted(-margin, -margin, margin, margin);
    return QRectF(points.topLeft() * ratio, points.size() * ratio).toAlignedRect();
}

/// Keeps as much of the line's end as is needed to have the cap at its beginning out of the new piece's
/// reach.
void StrokeCoverage::forgetDistantPieces() {
    const qreal enough = m_pen.widthF() + 8;
    auto needed = m_tail.size();
    for (std::size_t i = m_tail.size(); i > 0; --i) {
        if (distance(m_tail[i - 1].start, m_tail.back().end) > enough) {
            needed = m_tail.size() - (i - 1);
            break;
        }
    }
    needed = std::min(needed + 1, longestTail);
    while (m_tail.size() > needed)
        m_tail.pop_front();
}

void StrokeCoverage::fill(const QPainterPath &path, const QRect &pixels) {
    for (int y = pixels.top(); y <= pixels.bottom(); ++y)
        std::memset(m_scratch.scanLine(y) + pixels.left(), 0, static_cast<std::size_t>(pixels.width()));
    const qreal ratio = m_scratch.devicePixelRatio();
    QPainter painter(&m_scratch);
    painter.setClipRect(QRectF(QPointF(pixels.topLeft()) / ratio, QSizeF(pixels.size()) / ratio));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(m_pen);
    painter.drawPath(path);
}

} // namespace vexa
