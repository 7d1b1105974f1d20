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

    /// Syncs the file. False when the disk has refused it within `patience`. A sync that takes longer goes on
    /// in the background and counts as a success; until it is done, further calls return at once, and only
    /// the latest of their files is synced afterwards. When no thread can be started, the call waits as long
    /// as the disk takes. The descriptor stays the caller's.
    bool operator()(int descriptor);

private:
    void run();

    const std::chrono::milliseconds m_patience;
    const DiskSync m_sync;
    std::mutex m_mutex; ///< guards what follows, but for the thread
    std::condition_variable m_changed;
    int m_waiting = -1;   ///< a duplicate that is ours to close, of the next file to be synced; -1: none
    bool m_busy = false;  ///< the thread is syncing
    bool m_synced = true; ///< what the disk said of the last file
    bool m_ending = false;
    std::thread m_thread;
};

} // namespace vexa
