// SPDX-License-Identifier: MIT
#include "platform/x11/PictureReserve.h"

#include "platform/x11/LargePages.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <mutex>
#include <utility>

namespace vexa::platform {
namespace {

constexpr std::size_t pixelSize = 4; // bytes
constexpr std::size_t mostKept = std::size_t(3840) * 2160 * pixelSize;

/// The last pictures go with the last windows, which may be after main().
struct Reserve {
    std::mutex lock;
    LargePages pages;
    std::size_t prepared = 0; ///< bytes of the first ones
    bool used = false;
};

Reserve &reserve() {
    static Reserve *const theOne = new Reserve;
    return *theOne;
}

std::size_t bytesOf(const QSize &pixels) {
    return std::size_t(pixels.width()) * std::size_t(pixels.height()) * pixelSize;
}

LargePages takeOrMap(std::size_t bytes) {
    Reserve &kept = reserve();
    const std::lock_guard<std::mutex> guard(kept.lock);
    kept.used = true;
    LargePages pages = std::exchange(kept.pages, {});
    if (pages.bytes < bytes || pages.bytes - bytes >= largePage) {
        pages.unmap();
        pages = LargePages::map(bytes);
    }
    return pages;
}

/// Wiped, so that nothing of the screen stays behind; the system may then take it at any time, as what it
/// gives instead is clear, too.
void wipe(const LargePages &pages) {
    std::memset(pages.data, 0, pages.bytes);
    pages.offer();
}

/// One of the same size is as good; one of another size is of a screen that has changed.
void keepOrUnmap(void *gone) {
    LargePages pages = *std::unique_ptr<LargePages>(static_cast<LargePages *>(gone));
    Reserve &kept = reserve();
    const std::lock_guard<std::mutex> guard(kept.lock);
    if (pages.bytes <= mostKept && pages.bytes != kept.pages.bytes) {
        wipe(pages);
        std::swap(pages, kept.pages);
    }
    pages.unmap();
}

} // namespace

QImage PictureReserve::picture(const QSize &pixels) {
    if (pixels.isEmpty())
        return {};
    const LargePages pages = takeOrMap(bytesOf(pixels));
    if (!pages.data)
        return {};
    return {pages.data,           pixels.width(), pixels.height(),      pixels.width() * int(pixelSize),
            QImage::Format_RGB32, keepOrUnmap,    new LargePages(pages)};
}

bool PictureReserve::prepare(const QSize &pixels) {
    Reserve &kept = reserve();
    const std::lock_guard<std::mutex> guard(kept.lock);
    const std::size_t bytes = pixels.isEmpty() ? 0 : bytesOf(pixels);
    if (kept.used || bytes > mostKept || kept.prepared >= bytes)
        return false;
    if (!kept.pages.data)
        kept.pages = LargePages::map(bytes);
    if (!kept.pages.data)
        return false;
    const std::size_t next = std::min(largePage, kept.pages.bytes - kept.prepared);
    wipe({kept.pages.data + kept.prepared, next});
    kept.prepared += next;
    return kept.prepared < kept.pages.bytes;
}

} // namespace vexa::platform
