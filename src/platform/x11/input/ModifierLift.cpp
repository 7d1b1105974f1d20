// SPDX-License-Identifier: MIT
#include "platform/x11/input/ModifierLift.h"

#include <algorithm>

#include "platform/x11/input/Connection.h"
#include "platform/x11/input/FakeInput.h"
#include "platform/x11/input/Keyboards.h"

namespace vexa::x11 {

namespace {

// Option and command come first, so that they are never the last key pressed before they are let go: programs
// take that for a call of their menu.
constexpr int liftedKeys[] = {58, 61, 55, 54, 56, 60, 59, 62};

} // namespace

ModifierLift::ModifierLift(const Connection &connection) : m_connection(connection) {
    const KeySet down = keysDown(connection);
    for (const int virtualKey : liftedKeys)
        if (down.has(positionOf(virtualKey)))
            m_lifted.push_back({positionOf(virtualKey), false});
    if (m_lifted.empty())
        return;

    // Keyboards go on during a server grab. A key let go before it was seen in a hand is not ours to put
    // back.
    const KeySet byHand = keysHeldByHand(connection);
    const KeySet stillDown = keysDown(connection);
    const auto isUp = [&stillDown](const Lifted &lifted) { return !stillDown.has(lifted.key); };
    m_lifted.erase(std::remove_if(m_lifted.begin(), m_lifted.end(), isUp), m_lifted.end());
    for (Lifted &lifted : m_lifted) {
        lifted.byHand = byHand.has(lifted.key);
        fakeKey(connection, false, lifted.key, Seen::No);
    }
}

std::vector<XKeyCode> ModifierLift::restore() {
    std::vector<XKeyCode> restored;
    if (m_lifted.empty())
        return restored;
    for (const Lifted &lifted : m_lifted)
        fakeKey(m_connection, true, lifted.key, Seen::No);

    // The server does not tell of a real release of a key that is up for the session already, so only now can
    // be seen which keys were let go. Their release is the user's, so our listener sees it.
    const KeySet byHand = keysHeldByHand(m_connection);
    for (const Lifted &lifted : m_lifted) {
        if (lifted.byHand && !byHand.has(lifted.key))
            fakeKey(m_connection, false, lifted.key, Seen::Yes);
        else
            restored.push_back(lifted.key);
    }
    return restored;
}

} // namespace vexa::x11
