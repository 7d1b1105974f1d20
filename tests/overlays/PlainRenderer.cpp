// SPDX-License-Identifier: MIT
#include "overlays/PlainRenderer.h"

#include "support/ScreenProbe.h"

#include <QBitmap>
#include <QPainter>
#include <QPainterPath>

namespace vexa::test {
namespace {

QPixmap emptyLayer() {
    QPixmap layer(screenPoints() * screenRatio());
    layer.setDevicePixelRatio(screenRatio());
    layer.fill(Qt::transparent);
    return layer;
}

QPainterPath circle(const QPoint &centre, int radius) {
    QPainterPath path;
    path.addEllipse(QRectF(centre.x() - radius, centre.y() - radius, 2.0 * radius, 2.0 * radius));
    return path;
}

/// The picture's part in the rectangle, seen through a round hole; nothing where the rectangle is empty.
QPixmap roundPiece(const QPixmap &picture, const QRect &rect, const QPoint &holeAt, double holeRadius) {
    if (!rect.isValid() || !rect.intersects(QRect(QPoint(), picture.size())))
        return {};
    QPixmap piece = picture.copy(rect);
    QBitmap mask(piece.size());
    mask.fill(Qt::white);
    QPainter painter(&mask);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setBrush(QBrush(Qt::black, Qt::SolidPattern));
    painter.drawRoundedRect(QRect(holeAt, rect.size()), holeRadius, holeRadius, Qt::AbsoluteSize);
    painter.end();
    piece.setMask(mask);
    return piece;
}

QImage screenOf(const QPixmap &background, const QPixmap &layer) {
    QImage screen(screenPoints() * screenRatio(), QImage::Format_RGB32);
    screen.setDevicePixelRatio(screenRatio());
    QPainter painter(&screen);
    painter.drawPixmap(0, 0, background);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(0, 0, layer);
    painter.end();
    screen.setDevicePixelRatio(1);
    return screen;
}

} // namespace

QImage plainLaser(const QPixmap &background, const QPoint &at, int size, const QColor &colour) {
    QPixmap layer = emptyLayer();
    QPainter painter(&layer);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.fillPath(circle(at, size), QBrush(colour));
    painter.end();
    return screenOf(background, layer);
}

QImage plainSpotlight(const QPixmap &background, const QPoint &at, int size, int alpha) {
    const int width = screenPoints().width();
    const int height = screenPoints().height();
    QPixmap layer = emptyLayer();
    QPainter painter(&layer);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setBrush(QBrush(QColor(0, 0, 0, alpha), Qt::SolidPattern));
    painter.drawRect(0, 0, width, height);

    const int factor = background.width() / width;
    const int x = at.x() - size;
    const int y = at.y() - size;
    const QRect rect(x * factor, y * factor, 2 * size * factor, 2 * size * factor);
    const QPoint holeAt(x < 0 ? x * factor : 0, y < 0 ? y * factor : 0);
    const QPixmap piece = roundPiece(background, rect, holeAt, size * factor);
    if (!piece.isNull())
        painter.drawPixmap(qMin(qMax(x, 0), width), qMin(qMax(y, 0), height), piece);
    painter.end();
    return screenOf(background, layer);
}

QImage plainMagnifier(const QPixmap &background, const QPoint &at, int size, const QColor &ring) {
    const float zoom = 1.25F;
    const int sourceRadius = int(float(2 * size) / (2 * zoom));
    const int sourceDiameter = int(float(2 * size) / zoom);
    const int factor = background.width() / screenPoints().width();

    QPoint hole;
    QPoint lens(at.x() - size, at.y() - size);
    if (at.y() - size <= 0) {
        hole.setY(int(float(at.y() - size) / zoom));
        lens.setY(0);
    }
    if (at.x() - size < 1) {
        hole.setX(int(float(at.x() - size) / zoom));
        lens.setX(0);
    }

    QPixmap layer = emptyLayer();
    QPainter painter(&layer);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QRect rect((at.x() - sourceRadius) * factor, (at.y() - sourceRadius) * factor,
                     sourceDiameter * factor, sourceDiameter * factor);
    const QPixmap piece = roundPiece(background, rect, hole * factor, sourceRadius * factor);
    if (!piece.isNull())
        painter.drawPixmap(lens,
                           piece.scaled(int(zoom * float(piece.width())), int(zoom * float(piece.height())),
                                        Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    painter.setPen(ring);
    for (const int radius : {size, size + 1, size + 2})
        painter.drawPath(circle(at, radius));
    painter.end();
    return screenOf(background, layer);
}

} // namespace vexa::test
