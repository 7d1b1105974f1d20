// SPDX-License-Identifier: MIT
#include "platform/x11/ThreadLimit.h"

#include <QThread>

#include <mutex>
#include <pthread.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace vexa::platform {

namespace {

/// Four of the toolkit's, the listener, and those that wait for a picture, for the disk and for a posted key.
constexpr unsigned apartFromPainting = 8;

void *waitForGate(void *gate) {
    const std::lock_guard passed(*static_cast<std::mutex *>(gate));
    return nullptr;
}

/// How many of so many threads can be had at once.
unsigned threadsToBeHad(unsigned wanted) {
    std::mutex gate;
    std::vector<pthread_t> threads;
    {
        const std::lock_guard closed(gate);
        for (pthread_t thread{}; threads.size() < wanted; threads.push_back(thread))
            if (pthread_create(&thread, nullptr, waitForGate, &gate) != 0)
                break;
    }
    for (const pthread_t thread : threads)
        pthread_join(thread, nullptr);
    return unsigned(threads.size());
}

} // namespace

// No limit says how many are left: it is the user's, of all programs, and there are others of the system's.
void requireThreads() {
    // The toolkit paints large pictures with as many threads as there are processors.
    const unsigned wanted = apartFromPainting + unsigned(QThread::idealThreadCount());
    const unsigned had = threadsToBeHad(wanted);
    if (had < wanted)
        throw std::runtime_error("needs " + std::to_string(wanted) + " threads, of which it may have " +
                                 std::to_string(had) + " (ulimit -u)");
}

} // namespace vexa::platform
