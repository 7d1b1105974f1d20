// SPDX-License-Identifier: MIT
#include "platform/x11/SegmentStore.h"

#include <algorithm>
#include <utility>

namespace vexa::platform {

void SegmentStore::put(std::unique_ptr<SharedSegment> segment) {
    const std::lock_guard lock(m_mutex);
    m_fresh.push_back(std::move(segment));
}

std::unique_ptr<SharedSegment> SegmentStore::take(std::size_t bytes) {
    const std::lock_guard lock(m_mutex);
    for (Segments *segments : {&m_fresh, &m_waiting}) {
        const auto found = std::find_if(segments->begin(), segments->end(),
                                        [bytes](const auto &segment) { return segment->size() == bytes; });
        if (found == segments->end())
            continue;
        auto segment = std::move(*found);
        segments->erase(found);
        return segment;
    }
    return nullptr;
}

SegmentStore::Segments SegmentStore::takeUnused() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_waiting, std::exchange(m_fresh, {}));
}

std::size_t SegmentStore::bytes() const {
    const std::lock_guard lock(m_mutex);
    std::size_t sum = 0;
    for (const Segments *segments : {&m_fresh, &m_waiting})
        for (const auto &segment : *segments)
            sum += segment->size();
    return sum;
}

} // namespace vexa::platform
