// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace vexa {

/// Turns exit() into an end on the spot, with 1, as long as it lives. The toolkit calls exit() from the depth
/// of the event loop when the X server goes, or closes the connection, and that destroys what the listener
/// thread still works with. A display that is lost is said so in one line on stderr.
///
/// Make one when the other threads are at work, and everything static that they use exists; one at a time.
/// The ordinary end of main is not an exit() any more by then: objects go in their order. Main thread.
class AbruptExit {
public:
    AbruptExit();
    ~AbruptExit();

    AbruptExit(const AbruptExit &) = delete;
    AbruptExit &operator=(const AbruptExit &) = delete;
};

/// What an abrupt end still does first, as long as this object lives: the newest first. It must get along
/// without the display. Make it when everything static that it uses exists. Main thread.
class LastWork {
public:
    explicit LastWork(std::function<void()> work);
    ~LastWork();

    LastWork(const LastWork &) = delete;
    LastWork &operator=(const LastWork &) = delete;

    static void doAll();

private:
    static LastWork *newest;

    const std::function<void()> m_work;
    LastWork *m_older;
};

} // namespace vexa
