// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QRectF>

#include <CoreGraphics/CoreGraphics.h>
#include <vector>

namespace fakes {

/// A display: its place in global points, its picture in device pixels.
struct Display {
    CGDirectDisplayID id = 0;
    QRectF bounds;
    QImage picture;
};

/// What Core Graphics was asked for.
struct CaptureCall {
    CGDirectDisplayID display = 0;
    QRectF rect;
};

/// The displays that the fake Core Graphics has while this lives; one at a time. Captures are cut from a
/// display's picture, from the display's own corner on; what lies outside of it cannot be captured.
class Displays {
public:
    Displays();
    ~Displays();
    Displays(const Displays &) = delete;
    Displays &operator=(const Displays &) = delete;

    std::vector<Display> connected;

    std::vector<QRectF> searched;  ///< rectangles that displays were looked for in
    std::uint32_t roomOffered = 0; ///< display identifiers the last search had room for
    std::vector<CGDirectDisplayID> boundsRead;
    std::vector<CaptureCall> captured;
    int imagesAlive = 0;

    static Displays &instance();
};

} // namespace fakes
