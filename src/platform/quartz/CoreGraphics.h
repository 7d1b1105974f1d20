// SPDX-License-Identifier: MIT
#pragma once

#include "platform/quartz/CoreFoundation.h"

/// The part of Core Graphics that the program uses, where the system has none: event taps and the posting of
/// events, both through the input backend (InputBackend.h). Positions are in points from the top-left corner
/// of the primary screen.

using CGFloat = double;

struct CGPoint {
    CGFloat x;
    CGFloat y;
};

constexpr CGPoint CGPointMake(CGFloat x, CGFloat y) {
    return {x, y};
}

using CGKeyCode = std::uint16_t;
using CGEventFlags = std::uint64_t;
using CGEventMask = std::uint64_t;

enum CGEventType : std::uint32_t {
    kCGEventNull = 0,
    kCGEventLeftMouseDown = 1,
    kCGEventLeftMouseUp = 2,
    kCGEventMouseMoved = 5,
    kCGEventKeyDown = 10,
    kCGEventKeyUp = 11,
    kCGEventFlagsChanged = 12,
    kCGEventTapDisabledByTimeout = 0xFFFFFFFE,
    kCGEventTapDisabledByUserInput = 0xFFFFFFFF,
};

constexpr CGEventMask CGEventMaskBit(CGEventType type) {
    return CGEventMask{1} << type;
}

enum : CGEventFlags {
    kCGEventFlagMaskAlphaShift = 0x10000,
    kCGEventFlagMaskShift = 0x20000,
    kCGEventFlagMaskControl = 0x40000,
    kCGEventFlagMaskAlternate = 0x80000,
    kCGEventFlagMaskCommand = 0x100000,
};

enum CGEventField : std::uint32_t { kCGKeyboardEventKeycode = 9 };
enum CGMouseButton : std::uint32_t {
    kCGMouseButtonLeft = 0,
    kCGMouseButtonRight = 1,
    kCGMouseButtonCenter = 2
};
enum CGEventSourceStateID : std::int32_t { kCGEventSourceStatePrivate = -1 };
enum CGEventTapLocation : std::uint32_t { kCGHIDEventTap = 0, kCGSessionEventTap = 1 };
enum CGEventTapPlacement : std::uint32_t { kCGHeadInsertEventTap = 0 };
enum CGEventTapOptions : std::uint32_t { kCGEventTapOptionListenOnly = 1 };

using CGEventRef = struct CGEvent *;
using CGEventSourceRef = struct CGEventSource *;
using CGEventTapProxy = struct CGEventTap *;
using CGEventTapCallBack = CGEventRef (*)(CGEventTapProxy proxy, CGEventType type, CGEventRef event,
                                          void *userInfo);

/// A tap of the session's input. Null when the backend does not permit it. The callback runs on the loop that
/// serves the tap's source, which must be the creating thread's, for every event whose type is in the mask,
/// and whatever the mask when the system has disabled the tap.
CFMachPortRef CGEventTapCreate(CGEventTapLocation location, CGEventTapPlacement placement,
                               CGEventTapOptions options, CGEventMask mask, CGEventTapCallBack callback,
                               void *userInfo);

/// A disabled tap misses what happens meanwhile.
void CGEventTapEnable(CFMachPortRef tap, bool enable);

CGPoint CGEventGetLocation(CGEventRef event);
std::int64_t CGEventGetIntegerValueField(CGEventRef event, CGEventField field);
CGEventFlags CGEventGetFlags(CGEventRef event);
void CGEventSetFlags(CGEventRef event, CGEventFlags flags);
void CGEventSetType(CGEventRef event, CGEventType type);

CGEventSourceRef CGEventSourceCreate(CGEventSourceStateID state);
CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef source, CGKeyCode key, bool down);
CGEventRef CGEventCreateMouseEvent(CGEventSourceRef source, CGEventType type, CGPoint point,
                                   CGMouseButton button);

/// Puts the event into the session at once. The event stays the caller's.
void CGEventPost(CGEventTapLocation location, CGEventRef event);
