// SPDX-License-Identifier: MIT
#pragma once

#include <bitset>
#include <vector>

#include "platform/x11/input/KeyTable.h"

namespace vexa::x11 {

class Connection;

/// The keys, by X key code, that we hold for the session in a keyboard's stead since a lift. The server lets
/// a key go at the keyboard's own release of it all the same.
using KeptKeys = std::bitset<256>;

/// Lifts the modifiers that are held, so that a key posted meanwhile arrives without them. Within a server
/// grab, so that no other client fakes keys in between; our listener sees nothing of it. Keyboards go on
/// meanwhile: what they do is heard, and decides what is down afterwards.
class ModifierLift {
public:
    ModifierLift(const Connection &connection, KeptKeys &kept);

    /// Puts the modifiers back that are still held, and keeps those.
    void restore();

private:
    struct Lifted {
        XKeyCode key;
        bool byProgram; ///< which cannot let go meanwhile
    };

    const Connection &m_connection;
    KeptKeys &m_kept;
    std::vector<Lifted> m_lifted;
};

/// Stops keeping a key that is up for the session. Within a server grab.
void giveUpKept(const Connection &connection, KeptKeys &kept, XKeyCode key);

} // namespace vexa::x11
