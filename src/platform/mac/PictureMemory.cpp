// SPDX-License-Identifier: MIT
#include "platform/PictureMemory.h"

namespace vexa::platform {

QImage clearPicture(const QSize &pixels, QImage::Format format) {
    QImage picture(pixels, format);
    if (!picture.isNull())
        picture.fill(0);
    return picture;
}

// The system's allocator gives it back by itself when the system needs it.
void returnFreedMemory() {}

} // namespace vexa::platform
