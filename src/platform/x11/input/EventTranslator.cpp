// SPDX-License-Identifier: MIT
#include "platform/x11/input/EventTranslator.h"

#include <utility>
#include <xcb/xproto.h>

#include "platform/quartz/CoreGraphics.h"

namespace vexa::x11 {

namespace {

constexpr unsigned anyButton =
    XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3 | XCB_BUTTON_MASK_4 | XCB_BUTTON_MASK_5;

struct ModifierFlag {
    int left, right;
    CGEventFlags flag;
};

constexpr ModifierFlag modifierFlags[] = {
    {kVK_Shift, kVK_RightShift, kCGEventFlagMaskShift},
    {kVK_Control, kVK_RightControl, kCGEventFlagMaskControl},
    {kVK_Option, kVK_RightOption, kCGEventFlagMaskAlternate},
    {kVK_Command, kVK_RightCommand, kCGEventFlagMaskCommand},
};

} // namespace

void EventTranslator::take(const DeviceEvent &event) {
    switch (event.type) {
    case DeviceEvent::KeyPress:
    case DeviceEvent::KeyRelease:
        takeKey(event);
        break;
    case DeviceEvent::ButtonPress:
    case DeviceEvent::ButtonRelease:
        takeButton(event);
        break;
    case DeviceEvent::Motion:
        takeMotion(event);
        break;
    }
}

void EventTranslator::hideNext(DeviceEvent::Type type, XKeyCode key) {
    m_hiddenType = type;
    m_hiddenKey = key;
}

void EventTranslator::letGo(XKeyCode key) {
    m_hiddenKey = 0;
    if (const int virtualKey = virtualKeyOf(key); isModifier(virtualKey))
        changeModifier(virtualKey, false);
}

bool EventTranslator::isHidden(const DeviceEvent &event) {
    const XKeyCode key = std::exchange(m_hiddenKey, XKeyCode{0});
    return key != 0 && key == event.detail && m_hiddenType == event.type;
}

void EventTranslator::takeKey(const DeviceEvent &event) {
    if (isHidden(event))
        return;
    const int key = virtualKeyOf(event.detail);
    const bool down = event.type == DeviceEvent::KeyPress;
    if (isModifier(key))
        changeModifier(key, down);
    else if (key != noKey)
        m_events.push_back(keyEvent(down ? kCGEventKeyDown : kCGEventKeyUp, key));
}

/// A press may come twice (two keyboards, a repeating modifier), a release without its press (held since
/// before we listened); only what changes the state counts.
void EventTranslator::changeModifier(int virtualKey, bool down) {
    ++m_modifierEvents;
    const auto bit = static_cast<std::size_t>(virtualKey);
    if (m_held[bit] == down)
        return;
    m_held[bit] = down;
    m_events.push_back(keyEvent(kCGEventFlagsChanged, virtualKey));
}

void EventTranslator::reconcile(const std::function<bool(XKeyCode)> &isDown) {
    for (std::size_t key = 0; key < m_held.size(); ++key)
        if (m_held[key] && !isDown(positionOf(static_cast<int>(key))))
            changeModifier(static_cast<int>(key), false);
}

void EventTranslator::takeButton(const DeviceEvent &event) {
    if (event.detail != XCB_BUTTON_INDEX_1)
        return;
    const bool down = event.type == DeviceEvent::ButtonPress;
    m_events.push_back(pointerEvent(down ? kCGEventLeftMouseDown : kCGEventLeftMouseUp, event.position));
}

void EventTranslator::takeMotion(const DeviceEvent &event) {
    if ((event.state & anyButton) == 0) // else it is a drag
        m_events.push_back(pointerEvent(kCGEventMouseMoved, event.position));
}

InputEvent EventTranslator::keyEvent(std::uint32_t type, int virtualKey) const {
    InputEvent input;
    input.type = type;
    input.keyCode = virtualKey;
    for (const ModifierFlag &modifier : modifierFlags)
        if (m_held[static_cast<std::size_t>(modifier.left)] ||
            m_held[static_cast<std::size_t>(modifier.right)])
            input.flags |= modifier.flag;
    return input;
}

InputEvent EventTranslator::pointerEvent(std::uint32_t type, platform::Pixels position) const {
    const platform::Points points = screen.toPoints(position);
    InputEvent input;
    input.type = type;
    input.x = points.x;
    input.y = points.y;
    return input;
}

bool EventTranslator::next(InputEvent &event) {
    if (m_events.empty())
        return false;
    event = m_events.front();
    m_events.pop_front();
    return true;
}

} // namespace vexa::x11
