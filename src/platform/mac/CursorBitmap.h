// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QSize>

namespace vexa::platform {

/// How a bitmap lies in memory, in the words of NSBitmapImageRep.
struct BitmapLayout {
    static constexpr unsigned long alphaFirst = 1UL << 0;
    static constexpr unsigned long floatingPoint = 1UL << 2;
    static constexpr unsigned long littleEndian32 = 1UL << 9;

    long pixelsWide = 0;
    long pixelsHigh = 0;
    long bytesPerRow = 0;
    long bitsPerPixel = 0;
    long bitsPerSample = 0;
    long samplesPerPixel = 0;
    bool planar = false;
    unsigned long format = 0;
};

/// Copies a bitmap into an image of the given size, each pixel 0xAARRGGBB with the bitmap's own values. A
/// bitmap of another scale is sampled. Null when the size is empty or the layout is none that a cursor comes
/// in: whole bytes of grey or red, green and blue, with or without alpha, pixel after pixel.
QImage readBitmap(const unsigned char *data, const BitmapLayout &layout, const QSize &size);

} // namespace vexa::platform
