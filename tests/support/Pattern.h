// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QRgb>
#include <QSize>

namespace vexa::test {

/// The colour at this pixel of a picture in which no two neighbouring pixels are alike, so that nothing can
/// be a pixel off unseen.
inline QRgb patternAt(int x, int y) {
    return qRgb(x % 251, y % 241, (x * 7 + y * 13) % 239);
}

/// That picture. Size in device pixels.
inline QImage pattern(const QSize &pixels) {
    QImage image(pixels, QImage::Format_RGB32);
    for (int y = 0; y < pixels.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < pixels.width(); ++x)
            line[x] = patternAt(x, y);
    }
    return image;
}

} // namespace vexa::test
