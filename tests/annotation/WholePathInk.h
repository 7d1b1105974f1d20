// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QPen>
#include <QPixmap>

#include <vector>

/// The plain way to draw ink, which says what it has to look like: the whole stroke again at every sample.
class WholePathInk {
public:
    explicit WholePathInk(const QSize &points, qreal devicePixelRatio = 1);

    void setPen(const QPen &pen) { m_pen = pen; }
    void press(const QPoint &point);
    void move(const QPoint &point);
    void release() { m_path = QPainterPath(); }
    /// A whole stroke through these points.
    void draw(const std::vector<QPoint> &stroke);
    void erase(const QPoint &centre, bool smoothEdge);

    QImage image() const { return m_layer.toImage(); }

private:
    QPixmap m_layer;
    QPen m_pen;
    QPainterPath m_path;
    QPoint m_last;
};
