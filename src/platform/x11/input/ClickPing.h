// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ScreenPlace.h"

#include <cstdint>
#include <memory>

namespace vexa::x11 {

class Connection;

/// Finds out over a connection of its own whether the program under a click has read it. Window managers hold
/// a click back until they have given the window the focus; so first the session's buttons have to be up, and
/// then the program is asked for a sign of life (_NET_WM_PING), which it answers in the order in which it
/// reads. One thread.
class ClickPing {
public:
    /// Asks whichever window lies at that place of the desktop. To be called after the click was posted.
    explicit ClickPing(platform::Pixels place);
    ~ClickPing();
    ClickPing(const ClickPing &) = delete;
    ClickPing &operator=(const ClickPing &) = delete;

    /// True also when there is nobody to answer: no window lies there, or it does not know the question, or
    /// it has gone, or the server cannot be reached. Does not block, and goes on asking: call it again and
    /// again.
    bool isAnswered();

private:
    bool isOver();
    bool isEndTold() const;
    bool isHeldBack();
    void askForButtons();
    void askProgram();

    std::unique_ptr<Connection> m_connection; ///< null when there is nothing to wait for
    std::uint32_t m_window = 0;               ///< who is to answer; 0 for nobody
    std::uint32_t m_protocols = 0, m_ping = 0;
    unsigned m_buttons = 0; ///< the question for the buttons that the server has yet to answer
    bool m_isAsked = false; ///< the program
};

} // namespace vexa::x11
