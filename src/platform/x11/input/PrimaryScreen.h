// SPDX-License-Identifier: MIT
#pragma once

namespace vexa::x11 {

class Connection;

struct Pixels {
    int x;
    int y;
};

struct Points {
    double x;
    double y;
};

/// Where the primary screen lies on the X desktop, and how large a point is there.
struct PrimaryScreen {
    Pixels origin{0, 0};
    double pixelsPerPoint = 1;

    Points toPoints(Pixels root) const {
        return {(root.x - origin.x) / pixelsPerPoint, (root.y - origin.y) / pixelsPerPoint};
    }
    Pixels toPixels(Points points) const;
};

/// The origin of the primary monitor, of the first one where none is primary. (0, 0) when the server cannot
/// say.
Pixels primaryOrigin(const Connection &connection);

} // namespace vexa::x11
