// SPDX-License-Identifier: MIT
#pragma once

#include "base/FileReplacement.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace vexa {

/// Brings files onto the disk on a thread of its own, for callers that must not wait as long as a slow disk
/// takes. Used from one thread, as the DiskSync of replaceFile().
class BackgroundSync {
public:
    /// The caller waits at most `patience` for the disk's answer.
    explicit BackgroundSync(std::chrono::milliseconds patience, DiskSync sync = syncToDisk);
    /// Waits until the disk has all that was given.
    ~BackgroundSync();

    BackgroundSync(const BackgroundSync &) = delete;
    BackgroundSync &operator=(const BackgroundSync &) = delete;

    /// False when the disk has refused the file, as far as that is known in time. A disk that needs longer
    /// gets the file in the background; then callers wait for nothing at all until it is through, and of the
    /// files that come meanwhile it gets the latest one, which replaces the others. Without a thread to
    /// be had, callers wait as long as the disk takes. The descriptor stays the caller's.
    bool operator()(int descriptor);

private:
    void run();

    const std::chrono::milliseconds m_patience;
    const DiskSync m_sync;
    std::mutex m_mutex; ///< guards what follows, but for the thread
    std::condition_variable m_changed;
    int m_waiting = -1; ///< a descriptor of our own, the next to be synced
    bool m_busy = false;
    bool m_synced = true; ///< what the disk said of the last file
    bool m_ending = false;
    std::thread m_thread;
};

} // namespace vexa
