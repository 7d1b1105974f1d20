// SPDX-License-Identifier: MIT
#include "platform/x11/input/ModifierLift.h"

#include "platform/x11/input/Connection.h"
#include "platform/x11/input/FakeInput.h"
#include "platform/x11/input/Keyboards.h"

namespace vexa::x11 {

namespace {

// Option and command come first, so that they are never the last key pressed before they are let go: programs
// take that for a call of their menu.
constexpr int liftedKeys[] = {kVK_Option, kVK_RightOption, kVK_Command, kVK_RightCommand,
                              kVK_Shift,  kVK_RightShift,  kVK_Control, kVK_RightControl};

/// Makes keys down for the session where a keyboard holds them, and up where none does. By the time that is
/// done a keyboard may have moved on, so it is looked at again; not for ever, since while some client has
/// frozen the keyboards nothing changes.
void followKeyboards(const Connection &connection, KeptKeys &kept, const std::vector<XKeyCode> &keys) {
    bool changed = true;
    for (int looks = 0; changed && looks < 50; ++looks) {
        changed = false;
        const KeySet byHand = holdersOfKeys(connection).hands;
        const KeySet down = keysDown(connection);
        for (const XKeyCode key : keys) {
            if (byHand.has(key) == down.has(key))
                continue;
            fakeKey(connection, byHand.has(key), key);
            kept[key] = byHand.has(key);
            changed = true;
        }
    }
}

} // namespace

ModifierLift::ModifierLift(const Connection &connection, KeptKeys &kept)
    : m_connection(connection), m_kept(kept) {
    const KeySet down = keysDown(connection);
    const Holders holders = holdersOfKeys(connection);
    for (const int virtualKey : liftedKeys) {
        const XKeyCode key = positionOf(virtualKey);
        if (!down.has(key))
            continue;
        const bool byProgram = holders.programs.has(key) && !kept[key] && !holders.hands.has(key);
        m_lifted.push_back({key, byProgram});
        fakeKey(connection, false, key, Seen::No);
        kept.reset(key);
    }
}

void ModifierLift::restore() {
    if (m_lifted.empty())
        return;
    // The server tells nothing of a real release of a key that is up for the session already: it is asked,
    // and our listener hears of it by our own release.
    const KeySet byHand = holdersOfKeys(m_connection).hands;
    std::vector<XKeyCode> ofKeyboards;
    for (const Lifted &lifted : m_lifted) {
        const bool held = lifted.byProgram || byHand.has(lifted.key);
        fakeKey(m_connection, held, lifted.key, held ? Seen::No : Seen::Yes);
        if (lifted.byProgram)
            continue;
        m_kept[lifted.key] = held;
        ofKeyboards.push_back(lifted.key);
    }
    followKeyboards(m_connection, m_kept, ofKeyboards);
}

void giveUpKept(const Connection &connection, KeptKeys &kept, XKeyCode key) {
    // Where a keyboard holds it and it is up, a program has lifted it: that is its affair until the next
    // change.
    if (keysDown(connection).has(key) || holdersOfKeys(connection).hands.has(key))
        return;
    fakeKey(connection, false, key);
    kept.reset(key);
    followKeyboards(connection, kept, {key});
}

} // namespace vexa::x11
