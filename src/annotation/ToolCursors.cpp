// SPDX-License-Identifier: MIT
#include "annotation/ToolCursors.h"

#include <QPainter>
#include <QPainterPath>

namespace vexa {

namespace {

QPixmap clearSquare(int size, qreal devicePixelRatio) {
    QPixmap picture((QSizeF(size, size) * devicePixelRatio).toSize());
    picture.setDevicePixelRatio(devicePixelRatio);
    picture.fill(Qt::transparent);
    return picture;
}

QPainterPath discIn(const QRectF &square) {
    QPainterPath disc;
    disc.addEllipse(square);
    return disc;
}

} // namespace

QPixmap penPicture(int width, const QColor &colour, qreal devicePixelRatio) {
    if (width <= 0)
        return {};
    QPixmap picture = clearSquare(width, devicePixelRatio);
    QPainter painter(&picture);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const int even = 2 * (width / 2);
    painter.fillPath(discIn(QRectF(0, 0, even, even)), colour);
    return picture;
}

QPixmap eraserPicture(int size, qreal devicePixelRatio) {
    QPixmap picture = clearSquare(size, devicePixelRatio);
    QPainter painter(&picture);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setPen(QPen(Qt::black, 2.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter.setBrush(Qt::white);
    painter.drawPath(discIn(QRectF(1, 1, size - 2, size - 2)));
    return picture;
}

QCursor cursorFromPicture(const QPixmap &picture) {
    return picture.isNull() ? QCursor(Qt::ArrowCursor) : QCursor(picture, -1, -1);
}

} // namespace vexa
