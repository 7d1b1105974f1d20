// SPDX-License-Identifier: MIT
#include "platform/PictureMemory.h"

namespace vexa::platform {

QImage clearPicture(const QSize &pixels, QImage::Format format) {
    QImage picture(pixels, format);
    if (!picture.isNull())
        picture.fill(0);
    return picture;
}

} // namespace vexa::platform
