// SPDX-License-Identifier: MIT
#include "support/ScreenProbe.h"

#include <QGuiApplication>
#include <QScreen>

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

QImage shownOnScreen() {
    const QSize size = screenPoints();
    QImage image =
        QGuiApplication::primaryScreen()->grabWindow(0, 0, 0, size.width(), size.height()).toImage();
    image.setDevicePixelRatio(1);
    return image.convertToFormat(QImage::Format_RGB32);
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

QSize screenPoints() {
    return QGuiApplication::primaryScreen()->size();
}

qreal screenRatio() {
    return QGuiApplication::primaryScreen()->devicePixelRatio();
}

} // namespace vexa::test
