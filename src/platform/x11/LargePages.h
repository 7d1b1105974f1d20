// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cstddef>

namespace vexa::platform {

/// The large pages of the processors that Debian runs on; elsewhere this is only an alignment. One of them
/// costs about as much as ten of the usual 512 that it stands for.
constexpr std::size_t largePage = std::size_t(2) << 20;

/// Memory straight from the system, in large pages where it has them. A plain handle: it can be copied, and
/// whoever has the last copy calls unmap(). Any thread.
struct LargePages {
    uchar *data = nullptr;
    std::size_t bytes = 0;

    /// Whole usual pages, each byte 0, none of them allocated before it is written. Without data when there
    /// is no memory.
    static LargePages map(std::size_t bytes);

    /// Gives the memory back, if there is any. Copies of the handle must not be used any more.
    void unmap();
    /// Lets the system reclaim the memory whenever it runs short of it. Until a page is written again, its
    /// bytes may turn from what they were to 0 at any time.
    void offer() const;
};

} // namespace vexa::platform
