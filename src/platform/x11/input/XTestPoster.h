// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ScreenPlace.h"
#include "platform/quartz/InputBackend.h"
#include "platform/x11/input/Connection.h"
#include "platform/x11/input/KeyTable.h"
#include "platform/x11/input/ModifierLift.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

namespace vexa::x11 {

/// Puts events into the session, over a connection of its own. Any thread.
class XTestPoster {
public:
    ~XTestPoster();

    /// Connects, if that has not happened yet, or the connection was lost. False when it cannot post.
    bool connect();

    /// From now on this recording, by its id in the server, holds the requests by which events are posted
    /// here, each before the events that come of it; also after a new connection was made.
    void joinRecording(std::uint32_t recording);
    /// Later connections do not join it again. Nothing happens when it was never joined.
    void leaveRecording(std::uint32_t recording);

    /// Whether a client of the server, by its id there, is this one. A connection that is made anew has
    /// another id.
    bool isClient(std::uint32_t id) const { return id == m_client; }

    /// Posts at once, and returns when the server has done it. A key down is a press and a release, since a
    /// key left down would repeat for ever; for the key up that may follow nothing is posted. The positions
    /// are points of that screen. False when the server cannot be reached or has refused it, or there is no
    /// such key or kind of event.
    bool post(const InputEvent &event, const platform::ScreenPlace &screen);

    /// To be called when a modifier has changed: once no keyboard holds it any more, our faking device lets
    /// go of it, too, if a lift has left it pressed there.
    void settle(int virtualKey);

private:
    bool ensureConnection();
    bool postKey(XKeyCode key);
    bool postButton(platform::Pixels position, bool down);
    void settleKept(XKeyCode key);
    template<typename Fake> bool withoutModifiers(Fake fake);

    std::mutex m_mutex; ///< guards what follows
    std::unique_ptr<Connection> m_connection;
    KeptKeys m_kept;
    std::vector<std::uint32_t> m_recordings;
    std::atomic<std::uint32_t> m_client{0}; ///< atomic: the listener thread must not wait for a post
};

} // namespace vexa::x11
