// SPDX-License-Identifier: MIT
#include "input/CKeyboardListenerMac.h"
#include "platform/quartz/VirtualKeys.h"

namespace {

constexpr CGEventFlags heldModifiers =
    kCGEventFlagMaskControl | kCGEventFlagMaskShift | kCGEventFlagMaskAlternate | kCGEventFlagMaskCommand;

/// A new event has the modifiers that are held at the moment, which may be the pen's: they are not meant for
/// the key. The event is not released after posting, on purpose.
void postKey(CGKeyCode key, bool down, CGEventFlags flags = 0) {
    CGEventRef event = CGEventCreateKeyboardEvent(nullptr, key, down);
    if (!event)
        return;
    if (flags != 0)
        CGEventSetFlags(event, flags);
    else if (const CGEventFlags given = CGEventGetFlags(event); given & heldModifiers)
        CGEventSetFlags(event, given & ~heldModifiers);
    CGEventPost(kCGHIDEventTap, event);
} // NOLINT(clang-analyzer-osx.cocoa.RetainCount)

void postLeft(CGEventType type, int x, int y) {
    PostMouseEvent(kCGMouseButtonLeft, type, CGPointMake(x, y));
}

} // namespace

bool CKeyboardListenerMac::EnterPPT = false;

void CKeyboardListenerMac::SetPPTFullScreen() {
    EnterPPT = !EnterPPT;
    if (EnterPPT)
        postKey(kVK_Return, true, kCGEventFlagMaskCommand);
    else
        postKey(kVK_Escape, true);
}

void CKeyboardListenerMac::SetPlayOrPause() {
    postKey(kVK_Space, true);
    postKey(kVK_Space, false);
}

void CKeyboardListenerMac::SetPageUp() {
    postKey(kVK_PageUp, true);
}

void CKeyboardListenerMac::SetMouseMove(int x, int y) {
    postLeft(kCGEventMouseMoved, x, y);
}

void CKeyboardListenerMac::SetMouseDown(int x, int y) {
    postLeft(kCGEventMouseMoved, x, y);
    postLeft(kCGEventLeftMouseDown, x, y);
}

void CKeyboardListenerMac::SetMouseClick(int x, int y) {
    postLeft(kCGEventMouseMoved, x, y);
    postLeft(kCGEventLeftMouseDown, x, y);
    postLeft(kCGEventLeftMouseUp, x, y);
}

void CKeyboardListenerMac::SetpTosysCamera() {}

/// The event source is not released, on purpose; the event is.
void PostMouseEvent(CGMouseButton button, CGEventType type, CGPoint point) {
    CGEventSourceRef source = CGEventSourceCreate(kCGEventSourceStatePrivate);
    // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.RetainCount)
    CGEventRef event = CGEventCreateMouseEvent(source, type, point, button);
    if (!event)
        return;
    CGEventSetType(event, type);
    CGEventPost(kCGHIDEventTap, event);
    CFRelease(event);
}
