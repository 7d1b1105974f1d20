// SPDX-License-Identifier: MIT
#include "support/ScreenProbe.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

#include <cmath>
#include <cstdlib>

namespace vexa::test {

QPixmap wall(const QSize &pixels, qreal ratio) {
    QPixmap picture = QPixmap::fromImage(pattern(pixels));
    picture.setDevicePixelRatio(ratio);
    return picture;
}

QPixmap screenWall() {
    return wall(screenPoints() * screenRatio(), screenRatio());
}

QImage plainImage(const QPixmap &picture) {
    QImage image = picture.toImage().convertToFormat(QImage::Format_RGB32);
    image.setDevicePixelRatio(1);
    return image;
}

QImage shownOnScreen() {
    // Of all its pixels, which may be more than those of whole points.
    QImage image = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    image.setDevicePixelRatio(1);
    return image.convertToFormat(QImage::Format_RGB32);
}

bool screenBecomes(const QImage &expected) {
    int other = 0;
    const auto isShown = [&] { return (other = differences(shownOnScreen(), expected)) == 0; };
    const bool became = QTest::qWaitFor(isShown, patience);
    if (!became)
        qWarning("%d other pixels", other);
    return became;
}

int differences(const QImage &one, const QImage &other) {
    if (one.size() != other.size())
        return one.width() * one.height();
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        const auto *a = reinterpret_cast<const QRgb *>(one.constScanLine(y));
        const auto *b = reinterpret_cast<const QRgb *>(other.constScanLine(y));
        for (int x = 0; x < one.width(); ++x)
            count += (a[x] & RGB_MASK) != (b[x] & RGB_MASK) ? 1 : 0;
    }
    return count;
}

bool alike(QRgb one, QRgb other, int tolerance) {
    return std::abs(qRed(one) - qRed(other)) <= tolerance &&
           std::abs(qGreen(one) - qGreen(other)) <= tolerance &&
           std::abs(qBlue(one) - qBlue(other)) <= tolerance;
}

double distance(const QPoint &pixel, const QPointF &place) {
    return std::hypot(pixel.x() + 0.5 - place.x(), pixel.y() + 0.5 - place.y());
}

QSize screenPoints() {
    return QGuiApplication::primaryScreen()->size();
}

qreal screenRatio() {
    return QGuiApplication::primaryScreen()->devicePixelRatio();
}

} // namespace vexa::test
