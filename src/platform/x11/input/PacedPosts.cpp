// SPDX-License-Identifier: MIT
#include "platform/x11/input/PacedPosts.h"

#include "platform/quartz/CoreGraphics.h"

#include <algorithm>
#include <system_error>

namespace vexa::x11 {

PacedPosts::~PacedPosts() {
    {
        const std::lock_guard lock(m_mutex);
        m_endBy = Clock::now() + m_pace.toTheEnd;
    }
    m_changed.notify_one();
    if (m_thread.joinable())
        m_thread.join();
}

bool PacedPosts::post(const InputEvent &event) {
    {
        const std::lock_guard lock(m_mutex);
        const bool mayLeave = m_waiting.empty() && Clock::now() >= earliest(event);
        if (mayLeave || !startWaiting())
            return leave(event);
        m_waiting.push_back(event);
    }
    m_changed.notify_one();
    return true;
}

/// False when no thread can be started. The events then leave unpaced: a key that the presentation program
/// may drop is better than none.
bool PacedPosts::startWaiting() {
    if (m_thread.joinable())
        return true;
    try {
        m_thread = std::thread(&PacedPosts::postWaiting, this);
    } catch (const std::system_error &) {
        return false;
    }
    return true;
}

void PacedPosts::postWaiting() {
    std::unique_lock lock(m_mutex);
    for (;;) {
        if (m_waiting.empty()) {
            if (m_endBy != Clock::time_point::max())
                return;
            m_changed.wait(lock);
        } else if (const auto time = std::min(earliest(m_waiting.front()), m_endBy); Clock::now() < time) {
            m_changed.wait_until(lock, time);
        } else {
            leave(m_waiting.front());
            m_waiting.pop_front();
        }
    }
}

bool PacedPosts::leave(const InputEvent &event) {
    const bool posted = m_post(event);
    if (event.type == kCGEventLeftMouseUp)
        m_released = Clock::now();
    return posted;
}

PacedPosts::Clock::time_point PacedPosts::earliest(const InputEvent &event) const {
    const bool isKey = event.type == kCGEventKeyDown || event.type == kCGEventKeyUp;
    return isKey ? m_released + m_pace.keyAfterRelease : Clock::time_point::min();
}

} // namespace vexa::x11
