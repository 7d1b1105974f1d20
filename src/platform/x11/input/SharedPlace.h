// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ScreenPlace.h"

#include <mutex>

namespace vexa::x11 {

/// Where the primary screen lies, as last told. Any thread.
class SharedPlace {
public:
    platform::ScreenPlace get() const {
        const std::lock_guard lock(m_mutex);
        return m_place;
    }
    void set(const platform::ScreenPlace &place) {
        const std::lock_guard lock(m_mutex);
        m_place = place;
    }

private:
    mutable std::mutex m_mutex;
    platform::ScreenPlace m_place;
};

} // namespace vexa::x11
