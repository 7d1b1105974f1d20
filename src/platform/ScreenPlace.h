// SPDX-License-Identifier: MIT
#pragma once

namespace vexa::platform {

/// Device pixels of the whole desktop.
struct Pixels {
    int x;
    int y;
    bool operator==(Pixels other) const { return x == other.x && y == other.y; }
    bool operator!=(Pixels other) const { return !(*this == other); }
};

/// Points from the top-left corner of a screen.
struct Points {
    double x;
    double y;
};

/// Where a screen lies on the desktop, and how large a point is there: the arithmetic between the two, in one
/// place. Knows no window system.
struct ScreenPlace {
    Pixels origin{0, 0};
    Pixels size{0, 0};
    double pixelsPerPoint = 1;

    bool contains(Pixels pixels) const;
    Points toPoints(Pixels pixels) const;

    /// The pixel for a place in points. At the scale 1 and above, toPoints() of it, cut off to whole numbers,
    /// gives whole points back as they were. At a smaller scale, where several points share a pixel, it is
    /// the nearest pixel towards the middle of the screen, so that the pointer is never sent outside a margin
    /// that it is to be kept in. Any number may be given: what is more than a million points away counts as a
    /// million.
    Pixels toPixels(Points points) const;
};

/// A length in points that covers so many pixels: `points`, or a few more where the last pixel would stay
/// bare. What is painted covers a pixel when it reaches beyond its middle.
int coveringLength(int points, double pixelsPerPoint, int pixels);

} // namespace vexa::platform
