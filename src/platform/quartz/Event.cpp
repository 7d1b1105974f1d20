// SPDX-License-Identifier: MIT
#include "platform/quartz/Event.h"

using vexa::InputEvent;
using vexa::quartz::Event;

namespace {

InputEvent &inputOf(CGEventRef event) {
    return vexa::quartz::fromReference<Event>(event)->input;
}

} // namespace

CGPoint CGEventGetLocation(CGEventRef event) {
    return CGPointMake(inputOf(event).x, inputOf(event).y);
}

std::int64_t CGEventGetIntegerValueField(CGEventRef event, CGEventField field) {
    return field == kCGKeyboardEventKeycode ? inputOf(event).keyCode : 0;
}

CGEventFlags CGEventGetFlags(CGEventRef event) {
    return inputOf(event).flags;
}

void CGEventSetFlags(CGEventRef event, CGEventFlags flags) {
    inputOf(event).flags = flags;
}

void CGEventSetType(CGEventRef event, CGEventType type) {
    inputOf(event).type = type;
}

/// There is one private state here, so every source is the same object, counted like any other.
CGEventSourceRef CGEventSourceCreate(CGEventSourceStateID) {
    static const vexa::quartz::Object source;
    source.retain();
    return vexa::quartz::toReference<CGEventSourceRef>(&source);
}

CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef, CGKeyCode key, bool down) {
    InputEvent input;
    input.type = down ? kCGEventKeyDown : kCGEventKeyUp;
    input.keyCode = key;
    return vexa::quartz::toReference<CGEventRef>(new Event(input));
}

CGEventRef CGEventCreateMouseEvent(CGEventSourceRef, CGEventType type, CGPoint point, CGMouseButton button) {
    InputEvent input;
    input.type = type;
    input.x = point.x;
    input.y = point.y;
    input.button = button;
    return vexa::quartz::toReference<CGEventRef>(new Event(input));
}

void CGEventPost(CGEventTapLocation, CGEventRef event) {
    vexa::inputBackend().post(inputOf(event));
}
