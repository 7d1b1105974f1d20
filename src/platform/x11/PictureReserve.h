// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

namespace vexa::platform {

/// Memory for one picture of the screen, ready for the next one: when a tool opens, fresh memory takes longer
/// than filling it. While no picture uses it, it is clear, and the system may take it whenever it runs short.
/// Sizes in device pixels. Any thread.
class PictureReserve {
public:
    /// A clear picture of Format_RGB32. Its memory is the reserve, if that has the size. When the last copy
    /// of the picture goes, its memory becomes the reserve, in the place of one of another size; it goes back
    /// to the system where there is one of the same size, or the picture is larger than a 4K screen. Null
    /// when there is no memory.
    static QImage picture(const QSize &pixels);

    /// Allocates the next part, in a few milliseconds at most, of the memory for the first picture of that
    /// size. False when nothing is left to do, also once there has been a picture.
    static bool prepare(const QSize &pixels);
};

} // namespace vexa::platform
