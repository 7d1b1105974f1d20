// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/input/Connection.h"

#include <chrono>
#include <cstdint>

namespace vexa::x11 {

/// Keeps the program to one instance on an X display: that one owns a selection there, which the server hands
/// out once and takes back when the owner's connection ends, however the process does. Instances talk through
/// this selection alone, so neither a bus nor the user account matters. Blocks only where it says so. GUI
/// thread; the connection is its own.
class DisplayOwnership {
public:
    /// Null when the server cannot be reached.
    static std::unique_ptr<DisplayOwnership> open();

    /// Makes this process the display's instance. False when another one is, or the server cannot be reached.
    bool claim();

    enum class Answer {
        Activated, ///< it has taken notice, and shows its panel
        Starting,  ///< it does so as soon as it has started
        Gone,      ///< it has ended meanwhile: the display can be claimed again
        Silent,
        NoServer, ///< the connection to the server has ended
    };
    /// Asks the other instance to show its panel. Waits for its answer for this long at most.
    Answer activateOther(std::chrono::milliseconds patience);

    /// Marks this instance as ready: others may expect an answer at once. Call when fd() is being watched.
    void announceReady();

    struct News {
        bool activated = false; ///< another instance has asked for the panel; it has its answer
        bool lost = false;      ///< another client has taken the selection
    };
    /// Handles what has arrived. Call when fd() is readable.
    News read();

    int fd() const { return m_connection->fd(); }
    bool isBroken() const { return m_connection->isBroken(); }

private:
    explicit DisplayOwnership(std::unique_ptr<Connection> connection);

    std::uint32_t atom(const char *name) const;
    std::uint32_t owner() const;
    bool isReady(std::uint32_t window) const;
    Answer awaitAnswer(std::uint32_t asked, std::chrono::milliseconds patience);

    const std::unique_ptr<Connection> m_connection;
    const std::uint32_t m_selection;
    const std::uint32_t m_showPanel; ///< what the selection can be asked for
    const std::uint32_t m_ready;     ///< a property of the owner's window
    const std::uint32_t m_window;    ///< never shown
};

} // namespace vexa::x11
