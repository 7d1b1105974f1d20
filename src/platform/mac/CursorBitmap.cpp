// SPDX-License-Identifier: MIT
#include "platform/mac/CursorBitmap.h"

#include <optional>

namespace vexa::platform {

namespace {

// Where a pixel's samples are, as byte offsets into the pixel; grey has all three colours in one place.
struct SampleOffsets {
    long red, green, blue;
    std::optional<long> alpha;
};

std::optional<SampleOffsets> sampleOffsets(const BitmapLayout &layout) {
    const long bytesPerPixel = layout.bitsPerPixel / 8;
    const bool wholeBytes = layout.bitsPerSample == 8 && layout.bitsPerPixel % 8 == 0;
    const bool knownSamples = layout.samplesPerPixel >= 1 && layout.samplesPerPixel <= 4;
    if (layout.planar || (layout.format & BitmapLayout::floatingPoint) || !wholeBytes || !knownSamples ||
        bytesPerPixel < layout.samplesPerPixel || bytesPerPixel > 4)
        return {};

    const bool colour = layout.samplesPerPixel >= 3;
    const bool alpha = layout.samplesPerPixel % 2 == 0;
    const bool alphaFirst = alpha && (layout.format & BitmapLayout::alphaFirst);
    const bool reversed = bytesPerPixel == 4 && (layout.format & BitmapLayout::littleEndian32);
    const auto place = [&](long sample) { return reversed ? bytesPerPixel - 1 - sample : sample; };

    const long first = alphaFirst ? 1 : 0;
    SampleOffsets offsets{
        place(first), place(colour ? first + 1 : first), place(colour ? first + 2 : first), {}};
    if (alpha)
        offsets.alpha = place(alphaFirst ? 0 : layout.samplesPerPixel - 1);
    return offsets;
}

bool rowsHoldTheirPixels(const BitmapLayout &layout) {
    return layout.pixelsWide > 0 && layout.pixelsHigh > 0 &&
           layout.bytesPerRow / (layout.bitsPerPixel / 8) >= layout.pixelsWide;
}

} // namespace

QImage readBitmap(const unsigned char *data, const BitmapLayout &layout, const QSize &size) {
    const auto offsets = sampleOffsets(layout);
    if (!data || !offsets || !rowsHoldTheirPixels(layout) || size.isEmpty())
        return {};

    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        const unsigned char *const row = data + y * layout.pixelsHigh / size.height() * layout.bytesPerRow;
        auto *const line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const unsigned char *const pixel =
                row + x * layout.pixelsWide / size.width() * (layout.bitsPerPixel / 8);
            const int alpha = offsets->alpha ? pixel[*offsets->alpha] : 0xFF;
            line[x] = qRgba(pixel[offsets->red], pixel[offsets->green], pixel[offsets->blue], alpha);
        }
    }
    return image;
}

} // namespace vexa::platform
