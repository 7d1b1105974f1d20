// SPDX-License-Identifier: MIT
#include "platform/ScreenPlace.h"

#include <algorithm>
#include <cmath>

namespace vexa::platform {

namespace {

/// Beyond any desktop, and still safe to calculate with.
constexpr double farAway = 1e6;

/// The pixel nearest to zero whose points reach at least so far; for a positive number.
double firstPixelAt(double points, double pixelsPerPoint) {
    double pixel = std::floor(points * pixelsPerPoint);
    while (pixel / pixelsPerPoint < points)
        ++pixel;
    return pixel;
}

/// The last pixel whose points reach no further; for a positive number.
double lastPixelUpTo(double points, double pixelsPerPoint) {
    double pixel = std::ceil(points * pixelsPerPoint);
    while (pixel / pixelsPerPoint > points)
        --pixel;
    return pixel;
}

int toPixel(double points, double pixelsPerPoint, int size) {
    const double distance = std::min(farAway, std::abs(points));
    const bool towardsZero = pixelsPerPoint < 1 && points * pixelsPerPoint > size / 2.0;
    const double pixel =
        towardsZero ? lastPixelUpTo(distance, pixelsPerPoint) : firstPixelAt(distance, pixelsPerPoint);
    return static_cast<int>(std::copysign(pixel, points));
}

} // namespace

bool ScreenPlace::contains(Pixels pixels) const {
    return pixels.x >= origin.x && pixels.x < origin.x + size.x && pixels.y >= origin.y &&
           pixels.y < origin.y + size.y;
}

Points ScreenPlace::toPoints(Pixels pixels) const {
    return {(pixels.x - origin.x) / pixelsPerPoint, (pixels.y - origin.y) / pixelsPerPoint};
}

Pixels ScreenPlace::toPixels(Points points) const {
    return {toPixel(points.x, pixelsPerPoint, size.x) + origin.x,
            toPixel(points.y, pixelsPerPoint, size.y) + origin.y};
}

int coveringLength(int points, double pixelsPerPoint, int pixels) {
    constexpr double tolerance = 1e-6; // of a pixel: 1745 points are 1919.5000000000002 pixels at 1.1
    return std::max(points, static_cast<int>(std::ceil((pixels - 0.5 + tolerance) / pixelsPerPoint)));
}

} // namespace vexa::platform
