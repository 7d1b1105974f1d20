// SPDX-License-Identifier: MIT
#include "annotation/InkLayer.h"

#include "platform/PictureMemory.h"

namespace vexa {

namespace {

QImage emptyLayer(const QSize &points, qreal devicePixelRatio) {
    QImage layer = platform::clearPicture((QSizeF(points) * devicePixelRatio).toSize(),
                                          QImage::Format_ARGB32_Premultiplied);
    layer.setDevicePixelRatio(devicePixelRatio);
    return layer;
}

/// All four channels times a / 255, rounded the way the toolkit's painter does it.
QRgb scaled(QRgb pixel, uint a) {
    uint even = (pixel & 0x00ff00ff) * a;
    uint odd = ((pixel >> 8) & 0x00ff00ff) * a;
    even = (even + ((even >> 8) & 0x00ff00ff) + 0x00800080) >> 8;
    odd = odd + ((odd >> 8) & 0x00ff00ff) + 0x00800080;
    return (even & 0x00ff00ff) | (odd & 0xff00ff00);
}

/// An opaque colour laid over a pixel that it covers in part.
QRgb blended(QRgb pixel, QRgb colour, uint coverage) {
    return coverage == 255 ? colour : scaled(colour, coverage) + scaled(pixel, 255 - coverage);
}

} // namespace

InkLayer::InkLayer(const QSize &points, qreal devicePixelRatio)
    : m_image(emptyLayer(points, devicePixelRatio))
    , m_coverage(m_image.size(), devicePixelRatio)
    , m_watched(static_cast<std::size_t>(m_image.width()) * static_cast<std::size_t>(m_image.height()))
    , m_damage(m_image.size()) {}

InkLayer InkLayer::stretchedTo(const QSize &points, qreal devicePixelRatio) const {
    InkLayer layer(points, devicePixelRatio);
    QPainter painter(&layer.m_image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRect(QPoint(), points), m_image);
    layer.setPen(m_pen);
    layer.m_blank = m_blank;
    return layer;
}

void InkLayer::setPen(const QPen &pen) {
    m_pen = pen;
    m_colour = pen.color().rgb();
    m_coverage.setPen(pen);
    if (m_drawing)
        watchCovered(m_image.rect());
}

QRect InkLayer::begin(const QPoint &point) {
    if (!m_drawing)
        m_coverage.clear();
    m_blank = false;
    m_drawing = true;
    m_last = point;
    m_coverage.moveTo(point);
    return fillDisc(point, m_pen.width(), true, QPainter::CompositionMode_SourceOver);
}

QRect InkLayer::extend(const QPoint &point) {
    m_blank = false;
    const QPoint middle((m_last.x() + point.x()) / 2, (m_last.y() + point.y()) / 2);
    const QRect tip = m_coverage.quadTo(m_last, middle, [this](int x, int y) { watch(x, y); });
    m_last = point;
    settle();
    return toPoints(tip);
}

void InkLayer::end() {
    m_drawing = false;
    for (const Pixel &pixel : m_moving)
        m_watched[static_cast<std::size_t>(pixel.y) * static_cast<std::size_t>(m_image.width()) + pixel.x] =
            false;
    m_moving.clear();
}

QRect InkLayer::erase(const QPoint &centre, int diameter, bool smoothEdge) {
    return fillDisc(centre, diameter, smoothEdge, QPainter::CompositionMode_Clear);
}

/// Like a pen, a disc has its diameter rounded down to an even number.
QRect InkLayer::fillDisc(const QPoint &centre, int diameter, bool smoothEdge,
                         QPainter::CompositionMode mode) {
    const int radius = diameter / 2;
    QPainterPath disc;
    disc.addEllipse(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    QPainter painter(&m_image);
    painter.setRenderHint(QPainter::Antialiasing, smoothEdge);
    painter.setCompositionMode(mode);
    painter.fillPath(disc, m_pen.color());
    painter.end();

    const QRect points =
        QRect(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius).adjusted(-1, -1, 1, 1);
    if (m_drawing)
        watchCovered(toPixels(points));
    return points;
}

QRect InkLayer::toPoints(const QRect &pixels) const {
    const qreal ratio = m_image.devicePixelRatio();
    return QRectF(QPointF(pixels.topLeft()) / ratio, QSizeF(pixels.size()) / ratio).toAlignedRect();
}

QRect InkLayer::toPixels(const QRect &points) const {
    const qreal ratio = m_image.devicePixelRatio();
    return QRectF(QPointF(points.topLeft()) * ratio, QSizeF(points.size()) * ratio).toAlignedRect();
}

void InkLayer::watch(int x, int y) {
    const auto index =
        static_cast<std::size_t>(y) * static_cast<std::size_t>(m_image.width()) + static_cast<std::size_t>(x);
    if (m_watched[index])
        return;
    m_watched[index] = true;
    m_moving.push_back({static_cast<quint16>(x), static_cast<quint16>(y)});
}

/// The layer was changed there by something else than this stroke, so its edges have to settle again.
void InkLayer::watchCovered(const QRect &pixels) {
    const QRect area = pixels & m_image.rect();
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const uchar *coverage = m_coverage.row(y);
        for (int x = area.left(); x <= area.right(); ++x)
            if (coverage[x] != 0)
                watch(x, y);
    }
}

/// Draws the stroke once more, where that makes a difference.
void InkLayer::settle() {
    uchar *bits = m_image.bits();
    const auto stride = static_cast<std::size_t>(m_image.bytesPerLine());
    const auto width = static_cast<std::size_t>(m_image.width());
    std::size_t kept = 0;
    for (const Pixel at : m_moving) {
        QRgb &pixel = reinterpret_cast<QRgb *>(bits + at.y * stride)[at.x];
        const QRgb next = blended(pixel, m_colour, m_coverage.row(at.y)[at.x]);
        if (next == pixel) {
            m_watched[at.y * width + at.x] = false;
            continue;
        }
        pixel = next;
        m_damage.add(at.x, at.y);
        m_moving[kept++] = at;
    }
    m_moving.resize(kept);
}

} // namespace vexa
