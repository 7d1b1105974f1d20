// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/SharedSegment.h"

#include <memory>
#include <mutex>
#include <vector>

namespace vexa::platform {

/// Shared memory that waits for its next use. Any thread.
class SegmentStore {
public:
    using Segments = std::vector<std::unique_ptr<SharedSegment>>;

    void put(std::unique_ptr<SharedSegment> segment);
    /// One of exactly this size, or null.
    std::unique_ptr<SharedSegment> take(std::size_t bytes);
    /// Those that have waited since the last call or longer.
    Segments takeUnused();

    /// How much waits, in bytes.
    std::size_t bytes() const;

private:
    mutable std::mutex m_mutex;
    Segments m_fresh;   ///< put here since the last tidying
    Segments m_waiting; ///< and before it
};

} // namespace vexa::platform
