// SPDX-License-Identifier: MIT
#include "annotation/StrokeCoverage.h"

#include "platform/PictureMemory.h"

#include <QPainter>

#include <algorithm>
#include <cstring>

namespace vexa {

namespace {

// What may be filled anew because a few pixels are doubtful, in pixels along the lines.
constexpr int crowd = 300;

QImage emptyPlane(const QSize &pixels, qreal devicePixelRatio) {
    QImage plane = platform::clearPicture(pixels, QImage::Format_Alpha8);
    plane.setDevicePixelRatio(devicePixelRatio);
    return plane;
}

} // namespace

StrokeCoverage::StrokeCoverage(const QSize &pixels, qreal devicePixelRatio)
    : m_pieces(pixels)
    , m_coverage(emptyPlane(pixels, devicePixelRatio))
    , m_scratch(emptyPlane(pixels, devicePixelRatio)) {}

void StrokeCoverage::clear() {
    m_coverage.fill(0);
    m_pieces.clear();
}

void StrokeCoverage::moveTo(const QPointF &point) {
    m_end = point;
    m_lineBegins = true;
}

QRect StrokeCoverage::quadTo(const QPointF &control, const QPointF &end, const Changed &changed) {
    m_pieces.add({m_end, control, end, reach(m_end, control, end), m_lineBegins});
    const QRect pixels = reach(m_end, control, end) & m_coverage.rect();
    m_end = end;
    m_lineBegins = false;
    if (pixels.isEmpty())
        return pixels;

    QPainterPath tail = m_pieces.tail(m_pen.widthF() + 8);
    const auto width = static_cast<std::size_t>(pixels.width());
    m_before.resize(width * static_cast<std::size_t>(pixels.height()));
    fill(tail, pixels);
    for (int y = pixels.top(), i = 0; y <= pixels.bottom(); ++y, ++i)
        std::memcpy(m_before.data() + static_cast<std::size_t>(i) * width,
                    m_scratch.constScanLine(y) + pixels.left(), width);
    tail.quadTo(control, end);
    fill(tail, pixels);

    m_doubtful.clear();
    const uchar *before = m_before.data();
    for (int y = pixels.top(); y <= pixels.bottom(); ++y, before += width) {
        const uchar *after = m_scratch.constScanLine(y) + pixels.left();
        if (std::memcmp(before, after, width) == 0)
            continue;
        uchar *total = m_coverage.scanLine(y) + pixels.left();
        for (std::size_t i = 0; i < width; ++i) {
            if (before[i] == after[i])
                continue;
            const int x = pixels.left() + static_cast<int>(i);
            const int sum = std::clamp(total[i] + after[i] - before[i], 0, 255);
            if (total[i] != before[i] && sum < 255)
                m_doubtful.emplace_back(x, y);
            if (sum == total[i])
                continue;
            total[i] = static_cast<uchar>(sum);
            changed(x, y);
        }
    }
    if (!m_doubtful.empty())
        refill(m_doubtful, changed);
    return pixels;
}

/// Takes the coverage of these pixels from all the lines that run through them.
void StrokeCoverage::refill(const std::vector<QPoint> &pixels, const Changed &changed) {
    QRect area;
    for (const QPoint &pixel : pixels)
        area |= QRect(pixel, QSize(1, 1));
    const auto lines = m_pieces.linesThrough(area, crowd);
    if (!lines)
        return;
    fill(*lines, area);
    for (const QPoint &pixel : pixels) {
        uchar &total = m_coverage.scanLine(pixel.y())[pixel.x()];
        const uchar exact = m_scratch.constScanLine(pixel.y())[pixel.x()];
        if (total == exact)
            continue;
        total = exact;
        changed(pixel.x(), pixel.y());
    }
}

/// The pixels that a piece and the joint at its start may touch.
QRect StrokeCoverage::reach(const QPointF &start, const QPointF &control, const QPointF &end) const {
    const qreal ratio = m_coverage.devicePixelRatio();
    const qreal margin = m_pen.widthF() / 2 + 2;
    const auto [left, right] = std::minmax({start.x(), control.x(), end.x()});
    const auto [top, bottom] = std::minmax({start.y(), control.y(), end.y()});
    return QRectF(QPointF(left - margin, top - margin) * ratio,
                  QPointF(right + margin, bottom + margin) * ratio)
        .toAlignedRect();
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
