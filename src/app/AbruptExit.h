// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace vexa {

/// While it lives, exit() ends the process at once with code 1, without running the destructors of static
/// objects. The toolkit calls exit() from inside the event loop when the X server ends or closes the
/// connection, and those destructors would take away what the listener thread still uses. A lost display is
/// reported in one line on stderr.
///
/// Make it once the other threads run and every static object that they use exists; one at a time. It is
/// destroyed before main returns, so that an ordinary end still destroys everything in order. Main thread.
class AbruptExit {
public:
    AbruptExit();
    ~AbruptExit();

    AbruptExit(const AbruptExit &) = delete;
    AbruptExit &operator=(const AbruptExit &) = delete;
};

/// Work that an abrupt exit still does before the process ends, as long as this object lives. Of several the
/// newest comes first. The work must not need the display. Make it once every static object that the work
/// uses exists. Main thread.
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
