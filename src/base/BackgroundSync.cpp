// SPDX-License-Identifier: MIT
#include "base/BackgroundSync.h"

#include "base/ThreadStart.h"

#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace vexa {

BackgroundSync::BackgroundSync(std::chrono::milliseconds patience, DiskSync sync)
    : m_patience(patience), m_sync(std::move(sync)) {}

BackgroundSync::~BackgroundSync() {
    if (!m_thread.joinable())
        return;
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

bool BackgroundSync::operator()(int descriptor) {
    if (!m_thread.joinable() && !tryToStart(m_thread, [this] { run(); }))
        return m_sync(descriptor);
    const int own = fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
    if (own < 0)
        return m_sync(descriptor);

    std::unique_lock lock(m_mutex);
    if (const int outdated = std::exchange(m_waiting, own); outdated >= 0)
        close(outdated);
    if (m_busy)
        return true;
    m_changed.notify_all();
    const bool answered = m_changed.wait_for(lock, m_patience, [this] { return m_waiting < 0 && !m_busy; });
    return !answered || m_synced;
}

void BackgroundSync::run() {
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_waiting >= 0 || m_ending; });
        const int descriptor = std::exchange(m_waiting, -1);
        if (descriptor < 0)
            return;
        m_busy = true;
        lock.unlock();
        const bool synced = m_sync(descriptor);
        close(descriptor);
        lock.lock();
        m_synced = synced;
        m_busy = false;
        m_changed.notify_all();
    }
}

} // namespace vexa
