// SPDX-License-Identifier: MIT
#include "platform/x11/LargePages.h"

#include <cstdint>
#include <sys/mman.h>

namespace vexa::platform {

namespace {

std::size_t wholePages(std::size_t bytes) {
    constexpr std::size_t page = 4096;
    return (bytes + page - 1) / page * page;
}

} // namespace

LargePages LargePages::map(std::size_t wanted) {
    const std::size_t bytes = wholePages(wanted);
    void *whole =
        mmap(nullptr, bytes + largePage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (whole == MAP_FAILED)
        return {};
    // Begins where a large page does, as the system would else not use them.
    auto *const begin = static_cast<uchar *>(whole);
    const std::size_t before = (largePage - reinterpret_cast<std::uintptr_t>(begin) % largePage) % largePage;
    if (before > 0)
        munmap(begin, before);
    uchar *const data = begin + before;
    munmap(data + bytes, largePage - before);
    madvise(data, bytes, MADV_HUGEPAGE); // a hint: without large pages the memory works all the same
    return {data, bytes};
}

void LargePages::unmap() {
    if (data)
        munmap(data, bytes);
    *this = {};
}

void LargePages::offer() const {
    madvise(data, bytes, MADV_FREE); // a hint, too
}

} // namespace vexa::platform
