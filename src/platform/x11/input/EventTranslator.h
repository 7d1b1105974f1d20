// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ScreenPlace.h"
#include "platform/quartz/InputBackend.h"
#include "platform/x11/input/KeyTable.h"

#include <bitset>
#include <deque>
#include <functional>

namespace vexa::x11 {

/// One event as the server records it, or a look at the pointer as a motion.
struct DeviceEvent {
    enum Type : std::uint8_t { KeyPress = 2, KeyRelease, ButtonPress, ButtonRelease, Motion };

    Type type;
    std::uint8_t detail; ///< X key code or button
    platform::Pixels position;
    std::uint16_t state; ///< modifiers and buttons before the event
};

/// Turns what the server records into the product's events: keys by position and without their repeats, one
/// flags-changed event for each real change of a modifier, pointer moves without drags. Knows nothing of
/// connections.
class EventTranslator {
public:
    platform::ScreenPlace screen; ///< the primary one, in whose points positions are

    /// What programs are given for a button. Without it, the button itself.
    std::function<std::uint8_t(std::uint8_t button)> meaningOfButton;

    /// Where the pointer is before the first event.
    void startAt(platform::Pixels place) { m_place = place; }

    /// An event at another place than the last one is reported with a move to there, so that no motion is
    /// missed where not each of them is taken.
    void take(const DeviceEvent &event);

    /// Drops the next key event if it is this one, which we have faked ourselves.
    void hideNext(DeviceEvent::Type type, XKeyCode key);

    /// A release of the key is being faked. If it is up already the server will report no event, so a
    /// modifier counts as released now.
    void letGo(XKeyCode key);

    /// Invents the release of every key believed down that is not: the server drops records that wait too
    /// long, and tells nothing of a keyboard that goes away.
    void reconcile(const std::function<bool(XKeyCode)> &isDown);

    /// True while a key is believed down. All are taken for released at the start.
    bool anyKeyDown() const { return m_down.any(); }

    /// Counts the changes of keys, to see whether there were any.
    unsigned keyChanges() const { return m_keyChanges; }

    bool hasNext() const { return !m_events.empty(); }

    /// Takes the next event out. False when there is none.
    bool next(InputEvent &event);

private:
    void takeKey(const DeviceEvent &event);
    void changeKey(XKeyCode key, bool down);
    void takeButton(const DeviceEvent &event);
    void follow(const DeviceEvent &event);
    InputEvent keyEvent(std::uint32_t type, int virtualKey) const;
    InputEvent pointerEvent(std::uint32_t type) const;
    bool isHidden(const DeviceEvent &event);

    std::deque<InputEvent> m_events;
    std::bitset<256> m_down;        ///< keys, by X key code
    platform::Pixels m_place{0, 0}; ///< of the pointer
    unsigned m_keyChanges = 0;
    DeviceEvent::Type m_hiddenType = DeviceEvent::KeyPress;
    XKeyCode m_hiddenKey = 0; ///< 0: nothing to hide
};

} // namespace vexa::x11
