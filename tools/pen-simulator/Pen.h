// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ScreenPlace.h"
#include "platform/quartz/VirtualKeys.h"
#include "platform/x11/input/Connection.h"

#include <chrono>
#include <cstdint>
#include <initializer_list>
#include <memory>

namespace vexa::pen {

/// The letters that the pen types, by virtual key code.
enum class Letter {
    A = kVK_ANSI_A,
    S = kVK_ANSI_S,
    D = kVK_ANSI_D,
    G = kVK_ANSI_G,
    Y = kVK_ANSI_Y,
    I = kVK_ANSI_I,
    J = kVK_ANSI_J,
    M = kVK_ANSI_M,
};

/// A pen and a pointing hand, faked through the X server. The keys come from a keyboard device of the
/// session, as those of a real pen do; where there is none, from the one for faked keys.
class Pen {
public:
    /// Null, after a line on stderr, when the X server cannot be reached or lets nobody fake input.
    static std::unique_ptr<Pen> open();

    /// Presses control, shift and option, then the letter, and lets go of all.
    void typeChord(Letter letter);

    /// Moves the pointer there, in device pixels of the whole desktop, in that time.
    void move(platform::Pixels target, std::chrono::milliseconds duration);
    void button(bool down);
    void wait(std::chrono::milliseconds duration);

private:
    explicit Pen(std::unique_ptr<x11::Connection> connection);

    void key(int virtualKey, bool down);
    platform::Pixels pointer() const;

    const std::unique_ptr<x11::Connection> m_connection;
    std::uint8_t m_keyboard = 0;   ///< 0: the device for faked keys
    std::uint8_t m_firstEvent = 0; ///< of the extension that knows devices
};

} // namespace vexa::pen
