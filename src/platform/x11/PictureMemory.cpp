// SPDX-License-Identifier: MIT
#include "platform/PictureMemory.h"

#include <cstdint>
#include <malloc.h>
#include <memory>
#include <sys/mman.h>

namespace vexa::platform {
namespace {

/// The large pages of the processors that Debian runs on; elsewhere this is only an alignment. One of them
/// costs about as much as ten of the usual 512 that it stands for.
constexpr std::size_t largePage = std::size_t(2) << 20;
constexpr int bytesOfAWord = 4;

struct Mapping {
    uchar *data;
    std::size_t bytes;
};

void unmap(void *mapping) {
    const std::unique_ptr<Mapping> gone(static_cast<Mapping *>(mapping));
    munmap(gone->data, gone->bytes);
}

/// Null when there is no memory. Begins where a large page does, as the system would else not use them.
uchar *mapped(std::size_t bytes) {
    void *whole =
        mmap(nullptr, bytes + largePage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (whole == MAP_FAILED)
        return nullptr;
    auto *const begin = static_cast<uchar *>(whole);
    const std::size_t before = (largePage - reinterpret_cast<std::uintptr_t>(begin) % largePage) % largePage;
    if (before > 0)
        munmap(begin, before);
    uchar *const data = begin + before;
    munmap(data + bytes, largePage - before);
    madvise(data, bytes, MADV_HUGEPAGE); // a wish: without large pages it is memory all the same
    return data;
}

std::size_t wholePages(std::size_t bytes) {
    constexpr std::size_t page = 4096;
    return (bytes + page - 1) / page * page;
}

} // namespace

QImage clearPicture(const QSize &pixels, QImage::Format format) {
    const std::size_t line =
        std::size_t(pixels.width()) * std::size_t(QImage::toPixelFormat(format).bitsPerPixel()) / 8;
    const std::size_t bytesPerLine = (line + bytesOfAWord - 1) / bytesOfAWord * bytesOfAWord;
    const std::size_t bytes = wholePages(bytesPerLine * std::size_t(pixels.height()));
    uchar *const data = pixels.isEmpty() ? nullptr : mapped(bytes);
    if (!data)
        return {};
    return {data,   pixels.width(), pixels.height(),         int(bytesPerLine),
            format, unmap,          new Mapping{data, bytes}};
}

void returnFreedMemory() {
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

} // namespace vexa::platform
