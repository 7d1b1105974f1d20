// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "platform/x11/input/KeyTable.h"

namespace vexa::x11 {

class Connection;

/// Lifts the modifiers that are held, so that a key posted meanwhile arrives without them. Within a server
/// grab, so that no other client fakes keys in between; our listener sees nothing of it.
class ModifierLift {
public:
    explicit ModifierLift(const Connection &connection);

    /// Puts the modifiers back that are still held. Returns those that are now down.
    std::vector<XKeyCode> restore();

private:
    struct Lifted {
        XKeyCode key;
        bool byHand; ///< a keyboard held it, which may let go meanwhile
    };

    const Connection &m_connection;
    std::vector<Lifted> m_lifted;
};

} // namespace vexa::x11
