// SPDX-License-Identifier: MIT
#include "platform/x11/input/EventTranslator.h"

#include "platform/quartz/CoreGraphics.h"

#include <utility>

#include <xcb/xproto.h>

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
    follow(event);
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
        break;
    }
}

void EventTranslator::hideNext(DeviceEvent::Type type, XKeyCode key) {
    m_hiddenType = type;
    m_hiddenKey = key;
}

void EventTranslator::letGo(XKeyCode key) {
    m_hiddenKey = 0;
    if (isModifier(virtualKeyOf(key)))
        changeKey(key, false);
}

bool EventTranslator::isHidden(const DeviceEvent &event) {
    const XKeyCode key = std::exchange(m_hiddenKey, XKeyCode{0});
    return key != 0 && key == event.detail && m_hiddenType == event.type;
}

void EventTranslator::takeKey(const DeviceEvent &event) {
    if (!isHidden(event))
        changeKey(event.detail, event.type == DeviceEvent::KeyPress);
}

/// A press may come again without a release (the key repeats, or a second keyboard presses a modifier too):
/// it is no press of the pen. A release may come without its press, by a key that was down before we
/// listened; of a modifier that is no change.
void EventTranslator::changeKey(XKeyCode key, bool down) {
    const int virtualKey = virtualKeyOf(key);
    const bool changes = m_down[key] != down;
    if (virtualKey == noKey || (down && !changes))
        return;
    ++m_keyChanges;
    m_down[key] = down;
    if (!isModifier(virtualKey))
        m_events.push_back(keyEvent(down ? kCGEventKeyDown : kCGEventKeyUp, virtualKey));
    else if (changes)
        m_events.push_back(keyEvent(kCGEventFlagsChanged, virtualKey));
}

void EventTranslator::reconcile(const std::function<bool(XKeyCode)> &isDown) {
    for (std::size_t key = 0; key < m_down.size(); ++key)
        if (m_down[key] && !isDown(static_cast<XKeyCode>(key)))
            changeKey(static_cast<XKeyCode>(key), false);
}

void EventTranslator::takeButton(const DeviceEvent &event) {
    if ((meaningOfButton ? meaningOfButton(event.detail) : event.detail) != XCB_BUTTON_INDEX_1)
        return;
    const bool down = event.type == DeviceEvent::ButtonPress;
    m_events.push_back(pointerEvent(down ? kCGEventLeftMouseDown : kCGEventLeftMouseUp));
}

void EventTranslator::follow(const DeviceEvent &event) {
    // While a client keeps a device's events waiting the server records them at once, without the place.
    if (event.type != DeviceEvent::Motion && event.position == platform::Pixels{0, 0})
        return;
    const bool isDrag = (event.state & anyButton) != 0;
    if (event.position != std::exchange(m_place, event.position) && !isDrag)
        m_events.push_back(pointerEvent(kCGEventMouseMoved));
}

InputEvent EventTranslator::keyEvent(std::uint32_t type, int virtualKey) const {
    InputEvent input;
    input.type = type;
    input.keyCode = virtualKey;
    for (const ModifierFlag &modifier : modifierFlags)
        if (m_down[positionOf(modifier.left)] || m_down[positionOf(modifier.right)])
            input.flags |= modifier.flag;
    return input;
}

InputEvent EventTranslator::pointerEvent(std::uint32_t type) const {
    const platform::Points points = screen.toPoints(m_place);
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
