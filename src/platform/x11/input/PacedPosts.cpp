// SPDX-License-Identifier: MIT
#include "platform/x11/input/PacedPosts.h"

#include "platform/quartz/CoreGraphics.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace vexa::x11 {

using namespace std::chrono_literals;

namespace {

bool isKey(const InputEvent &event) {
    return event.type == kCGEventKeyDown || event.type == kCGEventKeyUp;
}

} // namespace

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
        } else if (m_unread && isKey(m_waiting.front())) {
            awaitReading(lock);
        } else if (const auto time = std::min(earliest(m_waiting.front()), m_endBy); Clock::now() < time) {
            m_changed.wait_until(lock, time);
        } else {
            leave(m_waiting.front());
            m_waiting.pop_front();
        }
    }
}

/// The pause begins anew when the release was read: a program that stood still meanwhile would find the key
/// right behind the click, however long after it the key has left.
void PacedPosts::awaitReading(std::unique_lock<std::mutex> &lock) {
    const InputEvent release = *std::exchange(m_unread, std::nullopt);
    const auto atLatest = m_released + m_pace.untilRead;
    lock.unlock(); // asking takes the server's answers, and nothing leaves while something waits
    const IsRead isRead = m_ask(release);
    lock.lock();
    while (!isRead() && Clock::now() < std::min(atLatest, m_endBy))
        m_changed.wait_for(lock, 5ms);
    m_released = Clock::now();
}

bool PacedPosts::leave(const InputEvent &event) {
    const bool posted = m_post(event);
    if (event.type == kCGEventLeftMouseUp) {
        m_released = Clock::now();
        m_unread = event;
    }
    return posted;
}

PacedPosts::Clock::time_point PacedPosts::earliest(const InputEvent &event) const {
    return isKey(event) ? m_released + m_pace.keyAfterRelease : Clock::time_point::min();
}

} // namespace vexa::x11
