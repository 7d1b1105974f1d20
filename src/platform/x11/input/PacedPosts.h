// SPDX-License-Identifier: MIT
#pragma once

#include "platform/quartz/InputBackend.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace vexa::x11 {

/// Lets posted events leave in order and at once, but for a key that is posted within keyAfterRelease of a
/// button's release: it waits until the program under the click has read the release, and that long again.
/// Presentation programs drop a key that they read together with a click, or drop the click. What is posted
/// after such a key waits with it, on a thread of this object; posting never blocks. A key that is posted
/// later leaves at once, whether or not the release was read. Any thread.
class PacedPosts {
public:
    struct Pace {
        std::chrono::milliseconds keyAfterRelease{250}; ///< idle 20 lost none; overloaded 100 did, 250 not
        std::chrono::milliseconds toTheEnd{1000};       ///< the longest time that destruction may take
        std::chrono::milliseconds untilRead{3000};      ///< who stands still longer is not waited for
    };

    /// Puts an event into the session; false when it cannot. Called by one thread at a time.
    using Post = std::function<bool(const InputEvent &)>;

    /// Whether a release has been read. Asked every few milliseconds, and must not block; true also when that
    /// cannot be known.
    using IsRead = std::function<bool()>;

    /// Begins to find out whether this button's release, which has left, has been read. Called by this
    /// object's thread, and only when a key waits.
    using Ask = std::function<IsRead(const InputEvent &release)>;

    PacedPosts(Post post, Ask ask) : PacedPosts(std::move(post), std::move(ask), Pace()) {}
    PacedPosts(Post post, Ask ask, Pace pace)
        : m_post(std::move(post)), m_ask(std::move(ask)), m_pace(pace) {}

    /// Posts what still waits before it returns: at its proper time as long as toTheEnd allows, then at once.
    ~PacedPosts();

    PacedPosts(const PacedPosts &) = delete;
    PacedPosts &operator=(const PacedPosts &) = delete;

    /// False when the event could not be posted; true also for one that has to wait.
    bool post(const InputEvent &event);

private:
    using Clock = std::chrono::steady_clock;

    bool startWaiting();
    void postWaiting();
    void awaitReading(std::unique_lock<std::mutex> &lock);
    bool leave(const InputEvent &event);
    Clock::time_point earliest(const InputEvent &event) const;

    const Post m_post;
    const Ask m_ask;
    const Pace m_pace;
    std::mutex m_mutex; ///< guards what follows, and is held while an event leaves
    std::condition_variable m_changed;
    std::deque<InputEvent> m_waiting;
    std::optional<InputEvent> m_unread;                      ///< the last release, until it is asked after
    Clock::time_point m_released = Clock::time_point::min(); ///< when it left, or was read
    Clock::time_point m_endBy = Clock::time_point::max();    ///< set by the destructor
    std::thread m_thread;                                    ///< since the first event that had to wait
};

} // namespace vexa::x11
