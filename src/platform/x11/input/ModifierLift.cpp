// SPDX-License-Identifier: MIT
#include "platform/x11/input/ModifierLift.h"

#include "platform/x11/input/Connection.h"
#include "platform/x11/input/FakeInput.h"
#include "platform/x11/input/Keyboards.h"

namespace vexa::x11 {

namespace {

// Option and command come first: programs open their menu at a release of one of them that directly follows
// its press.
constexpr int liftedKeys[] = {kVK_Option, kVK_RightOption, kVK_Command, kVK_RightCommand,
                              kVK_Shift,  kVK_RightShift,  kVK_Control, kVK_RightControl};

/// Fakes presses and releases until a key is down for the session exactly where a keyboard holds it. While
/// that is done a keyboard may change again, so it is looked at again; only so many times, since while a
/// client has frozen the keyboards a faked key changes nothing.
void followKeyboards(const Connection &connection, KeptKeys &kept, const std::vector<XKeyCode> &keys) {
    bool changed = true;
    for (int looks = 0; changed && looks < 50; ++looks) {
        changed = false;
        const KeySet onKeyboards = holdersOfKeys(connection).keyboards;
        const KeySet down = keysDown(connection);
        for (const XKeyCode key : keys) {
            if (onKeyboards.has(key) == down.has(key))
                continue;
            fakeKey(connection, onKeyboards.has(key), key);
            kept[key] = onKeyboards.has(key);
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
        const bool byProgram = holders.programs.has(key) && !kept[key] && !holders.keyboards.has(key);
        m_lifted.push_back({key, byProgram});
        fakeKey(connection, false, key, Seen::No);
        kept.reset(key);
    }
}

void ModifierLift::restore() {
    if (m_lifted.empty())
        return;
    // The server reports no real release of a key that is up for the session already, so the devices are
    // asked; our listener learns of such a release from the one that we fake.
    const KeySet onKeyboards = holdersOfKeys(m_connection).keyboards;
    std::vector<XKeyCode> ofKeyboards;
    for (const Lifted &lifted : m_lifted) {
        const bool held = lifted.byProgram || onKeyboards.has(lifted.key);
        fakeKey(m_connection, held, lifted.key, held ? Seen::No : Seen::Yes);
        if (lifted.byProgram)
            continue;
        m_kept[lifted.key] = held;
        ofKeyboards.push_back(lifted.key);
    }
    followKeyboards(m_connection, m_kept, ofKeyboards);
}

void giveUpKept(const Connection &connection, KeptKeys &kept, XKeyCode key) {
    // A key that a keyboard holds, but that is up for the session, was lifted by another program, which will
    // press it again.
    if (keysDown(connection).has(key) || holdersOfKeys(connection).keyboards.has(key))
        return;
    fakeKey(connection, false, key);
    kept.reset(key);
    followKeyboards(connection, kept, {key});
}

} // namespace vexa::x11
