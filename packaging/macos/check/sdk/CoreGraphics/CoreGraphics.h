// SPDX-License-Identifier: MIT
// The part of Core Graphics that this program uses, declared after Apple's documentation. For checking and
// testing without Apple's development kit; a real build never sees this file.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

typedef double CGFloat;
struct CGPoint {
    CGFloat x;
    CGFloat y;
};
struct CGSize {
    CGFloat width;
    CGFloat height;
};
struct CGRect {
    CGPoint origin;
    CGSize size;
};
inline CGPoint CGPointMake(CGFloat x, CGFloat y) {
    return {x, y};
}
inline CGSize CGSizeMake(CGFloat width, CGFloat height) {
    return {width, height};
}
inline CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    return {{x, y}, {width, height}};
}

enum CGError : std::int32_t { kCGErrorSuccess = 0, kCGErrorFailure = 1000, kCGErrorIllegalArgument = 1001 };
typedef std::uint32_t CGDirectDisplayID;
typedef struct CGImage *CGImageRef;

typedef struct __CGEvent *CGEventRef;
typedef struct __CGEventSource *CGEventSourceRef;
typedef struct __CGEventTapProxy *CGEventTapProxy;
typedef std::uint64_t CGEventMask;
typedef std::uint16_t CGKeyCode;
typedef std::uint64_t CGEventFlags;

enum CGEventType : std::uint32_t {
    kCGEventNull = 0,
    kCGEventLeftMouseDown = 1,
    kCGEventLeftMouseUp = 2,
    kCGEventRightMouseDown = 3,
    kCGEventRightMouseUp = 4,
    kCGEventMouseMoved = 5,
    kCGEventLeftMouseDragged = 6,
    kCGEventRightMouseDragged = 7,
    kCGEventKeyDown = 10,
    kCGEventKeyUp = 11,
    kCGEventFlagsChanged = 12,
    kCGEventTapDisabledByTimeout = 0xFFFFFFFE,
    kCGEventTapDisabledByUserInput = 0xFFFFFFFF
};
enum CGMouseButton : std::uint32_t {
    kCGMouseButtonLeft = 0,
    kCGMouseButtonRight = 1,
    kCGMouseButtonCenter = 2
};
enum CGEventField : std::uint32_t { kCGKeyboardEventAutorepeat = 8, kCGKeyboardEventKeycode = 9 };
enum CGEventTapLocation : std::uint32_t {
    kCGHIDEventTap = 0,
    kCGSessionEventTap = 1,
    kCGAnnotatedSessionEventTap = 2
};
enum CGEventTapPlacement : std::uint32_t { kCGHeadInsertEventTap = 0, kCGTailAppendEventTap = 1 };
enum CGEventTapOptions : std::uint32_t { kCGEventTapOptionDefault = 0, kCGEventTapOptionListenOnly = 1 };
enum CGEventSourceStateID : std::int32_t {
    kCGEventSourceStatePrivate = -1,
    kCGEventSourceStateCombinedSessionState = 0,
    kCGEventSourceStateHIDSystemState = 1
};
enum : CGEventFlags {
    kCGEventFlagMaskAlphaShift = 0x00010000,
    kCGEventFlagMaskShift = 0x00020000,
    kCGEventFlagMaskControl = 0x00040000,
    kCGEventFlagMaskAlternate = 0x00080000,
    kCGEventFlagMaskCommand = 0x00100000
};
#define CGEventMaskBit(type) (CGEventMask(1) << (type))

typedef CGEventRef (*CGEventTapCallBack)(CGEventTapProxy proxy, CGEventType type, CGEventRef event,
                                         void *userInfo);

extern "C" {
CGError CGGetDisplaysWithRect(CGRect rect, std::uint32_t maxDisplays, CGDirectDisplayID *displays,
                              std::uint32_t *matchingDisplayCount);
CGRect CGDisplayBounds(CGDirectDisplayID display);
void CGImageRelease(CGImageRef image);

CFMachPortRef CGEventTapCreate(CGEventTapLocation tap, CGEventTapPlacement place, CGEventTapOptions options,
                               CGEventMask eventsOfInterest, CGEventTapCallBack callback, void *userInfo);
void CGEventTapEnable(CFMachPortRef tap, bool enable);

CGPoint CGEventGetLocation(CGEventRef event);
std::int64_t CGEventGetIntegerValueField(CGEventRef event, CGEventField field);
CGEventFlags CGEventGetFlags(CGEventRef event);
void CGEventSetFlags(CGEventRef event, CGEventFlags flags);
void CGEventSetType(CGEventRef event, CGEventType type);
void CGEventPost(CGEventTapLocation tap, CGEventRef event);
CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef source, CGKeyCode virtualKey, bool keyDown);
CGEventRef CGEventCreateMouseEvent(CGEventSourceRef source, CGEventType mouseType,
                                   CGPoint mouseCursorPosition, CGMouseButton mouseButton);
CGEventSourceRef CGEventSourceCreate(CGEventSourceStateID stateID);
}
