// SPDX-License-Identifier: MIT
#include "platform/PictureMemory.h"

#include "platform/x11/LargePages.h"

#include <malloc.h>
#include <memory>

namespace vexa::platform {
namespace {

constexpr int bytesOfAWord = 4;

void unmap(void *pages) {
    std::unique_ptr<LargePages>(static_cast<LargePages *>(pages))->unmap();
}

} // namespace

QImage clearPicture(const QSize &pixels, QImage::Format format) {
    const std::size_t line =
        std::size_t(pixels.width()) * std::size_t(QImage::toPixelFormat(format).bitsPerPixel()) / 8;
    const std::size_t bytesPerLine = (line + bytesOfAWord - 1) / bytesOfAWord * bytesOfAWord;
    const std::size_t bytes = bytesPerLine * std::size_t(pixels.height());
    const LargePages pages = pixels.isEmpty() ? LargePages() : LargePages::map(bytes);
    if (!pages.data)
        return {};
    return {pages.data, pixels.width(), pixels.height(),      int(bytesPerLine),
            format,     unmap,          new LargePages(pages)};
}

void returnFreedMemory() {
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

} // namespace vexa::platform
