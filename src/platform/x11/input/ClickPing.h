// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ScreenPlace.h"

#include <cstdint>
#include <memory>

namespace vexa::x11 {

class Connection;

/// Asks the program under a click for a sign of life (_NET_WM_PING), over a connection of its own. A program
/// answers in the order in which it reads, so an answer says that it has read the click too. One thread.
class ClickPing {
public:
    /// Asks whichever window lies at that place of the desktop. To be called after the click was posted.
    explicit ClickPing(platform::Pixels place);
    ~ClickPing();
    ClickPing(const ClickPing &) = delete;
    ClickPing &operator=(const ClickPing &) = delete;

    /// True also when nobody can be asked: no window lies there, or it does not know the question, or the
    /// server cannot be reached. Does not block.
    bool isAnswered();

private:
    void ask(platform::Pixels place);

    std::unique_ptr<Connection> m_connection; ///< null when there is nothing to wait for
    std::uint32_t m_window = 0;               ///< who is to answer
    std::uint32_t m_protocols = 0, m_ping = 0;
};

} // namespace vexa::x11
