// SPDX-License-Identifier: MIT
#include "platform/ScreenCapture.h"
#include "platform/mac/CursorBitmap.h"
#include "platform/mac/ObjectiveC.h"

#include <CoreGraphics/CoreGraphics.h>

namespace vexa::platform {

namespace {

BitmapLayout layoutOf(id bitmap) {
    BitmapLayout layout;
    layout.pixelsWide = send<long>(bitmap, "pixelsWide");
    layout.pixelsHigh = send<long>(bitmap, "pixelsHigh");
    layout.bytesPerRow = send<long>(bitmap, "bytesPerRow");
    layout.bitsPerPixel = send<long>(bitmap, "bitsPerPixel");
    layout.bitsPerSample = send<long>(bitmap, "bitsPerSample");
    layout.samplesPerPixel = send<long>(bitmap, "samplesPerPixel");
    layout.planar = send<BOOL>(bitmap, "isPlanar");
    layout.format = send<unsigned long>(bitmap, "bitmapFormat");
    return layout;
}

// Whole points; empty for what is no size of a cursor, not a number included.
QSize wholePoints(CGSize size) {
    constexpr double tooLarge = 4096;
    const bool sane = size.width >= 1 && size.width < tooLarge && size.height >= 1 && size.height < tooLarge;
    return sane ? QSize(static_cast<int>(size.width), static_cast<int>(size.height)) : QSize(0, 0);
}

} // namespace

CursorPicture currentCursorPicture() {
    const AutoreleasePool pool;
    const id cursor = send<id>(classNamed("NSCursor"), "currentSystemCursor");
    const id image = send<id>(cursor, "image");
    const id data = send<id>(image, "TIFFRepresentation");
    if (!data)
        return {};
    const id bitmap = send<id>(classNamed("NSBitmapImageRep"), "imageRepWithData:", data);
    if (!bitmap)
        return {};

    // Asking for the bytes may unpack them, so their layout is asked for afterwards.
    const unsigned char *const bytes = send<unsigned char *>(bitmap, "bitmapData");
    const QSize size = wholePoints(send<CGSize>(image, "size"));
    QImage picture = readBitmap(bytes, layoutOf(bitmap), size);
    if (picture.isNull())
        return {};
    return {std::move(picture), size};
}

} // namespace vexa::platform
