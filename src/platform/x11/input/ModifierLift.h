// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/input/KeyTable.h"

#include <bitset>
#include <vector>

namespace vexa::x11 {

class Connection;

/// The keys, by X key code, whose press was faked again after a lift because a keyboard still holds them.
/// When the keyboard releases such a key the session sees the release, but the XTEST device still counts as
/// holding it.
using KeptKeys = std::bitset<256>;

/// Fakes the release of the modifiers that are held, so that a key posted meanwhile arrives without them. To
/// be used within a server grab, so that no other client fakes keys in between. The faked releases and
/// presses are hidden from our listener. Real keyboards keep working during a server grab: what they do is
/// heard, and decides which modifiers are down afterwards.
class ModifierLift {
public:
    ModifierLift(const Connection &connection, KeptKeys &kept);

    /// Fakes the press of those modifiers again that are still held, and notes them as kept.
    void restore();

private:
    struct Lifted {
        XKeyCode key;
        bool byProgram; ///< faked by another client, which the server grab keeps from releasing it meanwhile
    };

    const Connection &m_connection;
    KeptKeys &m_kept;
    std::vector<Lifted> m_lifted;
};

/// Fakes the release of a kept key that is up for the session, so that other clients can fake it. To be used
/// within a server grab.
void giveUpKept(const Connection &connection, KeptKeys &kept, XKeyCode key);

} // namespace vexa::x11
