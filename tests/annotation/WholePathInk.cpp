// SPDX-License-Identifier: MIT
#include "annotation/WholePathInk.h"

#include <QPainter>

namespace {
void fillDisc(QPainter &painter, const QPoint &centre, int radius, const QColor &colour) {
    QPainterPath disc;
    disc.addEllipse(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    painter.fillPath(disc, colour);
}
} // namespace

WholePathInk::WholePathInk(const QSize &points, qreal devicePixelRatio)
    : m_layer((QSizeF(points) * devicePixelRatio).toSize()) {
    m_layer.setDevicePixelRatio(devicePixelRatio);
    m_layer.fill(Qt::transparent);
}

void WholePathInk::press(const QPoint &point) {
    m_last = point;
    m_path.moveTo(point);
    QPainter painter(&m_layer);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    fillDisc(painter, point, m_pen.width() / 2, m_pen.color());
}

void WholePathInk::move(const QPoint &point) {
    m_path.quadTo(m_last, QPoint((m_last.x() + point.x()) / 2, (m_last.y() + point.y()) / 2));
    m_last = point;
    QPainter painter(&m_layer);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setPen(m_pen);
    painter.drawPath(m_path);
}

void WholePathInk::draw(const std::vector<QPoint> &stroke) {
    press(stroke.front());
    for (std::size_t i = 1; i < stroke.size(); ++i)
        move(stroke[i]);
    release();
}

void WholePathInk::erase(const QPoint &centre, bool smoothEdge) {
    QPainter painter(&m_layer);
    painter.setRenderHint(QPainter::Antialiasing, smoothEdge);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    fillDisc(painter, centre, 25, m_pen.color());
}
