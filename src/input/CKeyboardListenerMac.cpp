// SPDX-License-Identifier: MIT
#include "input/CKeyboardListenerMac.h"

#include "platform/quartz/VirtualKeys.h"

#include <stdexcept>

namespace {

int keyCodeOf(CGEventRef event) {
    return int(CGEventGetIntegerValueField(event, kCGKeyboardEventKeycode));
}

} // namespace

const CFStringRef CKeyboardListenerMac::PORT_NAME = CFSTR("KeyboardKillerPort");

void CKeyboardListenerMac::CKiller::stopListening() const {
    const CFTimeInterval sendTimeout = 60; // seconds
    m_port.SendRequest(0, nullptr, sendTimeout, 0, nullptr, nullptr);
}

CKeyboardListenerMac::CKeyboardListenerMac(std::promise<CAnyKeyboardKiller> promise) : QObject(nullptr) {
    SetupRunLoop();

    CMessagePort killerPort(CFMessagePortCreateRemote(kCFAllocatorDefault, PORT_NAME));
    if (!killerPort)
        throw std::runtime_error("Failed to create killerMessagePort");
    promise.set_value(CAnyKeyboardKiller(std::make_unique<CKiller>(std::move(killerPort))));
}

void CKeyboardListenerMac::SetupRunLoop() {
    m_eventTap.Set(CGEventTapCreate(kCGSessionEventTap, kCGHeadInsertEventTap, kCGEventTapOptionListenOnly,
                                    CreateMask(), StaticCallbackFunction, this));
    if (!m_eventTap)
        throw std::runtime_error("Failed to create eventTap");

    m_port.Set(
        CFMessagePortCreateLocal(kCFAllocatorDefault, PORT_NAME, MessagePortCallback, nullptr, nullptr));
    if (!m_port)
        throw std::runtime_error("Failed to create messagePort");

    m_portSource.Set(CFMessagePortCreateRunLoopSource(kCFAllocatorDefault, m_port.Get(), 0));
    m_tapSource.Set(CFMachPortCreateRunLoopSource(kCFAllocatorDefault, m_eventTap.Get(), 0));
    CFRunLoopAddSource(CFRunLoopGetCurrent(), m_portSource.Get(), kCFRunLoopCommonModes);
    CFRunLoopAddSource(CFRunLoopGetCurrent(), m_tapSource.Get(), kCFRunLoopCommonModes);
}

int CKeyboardListenerMac::exec() {
    CFRunLoopRun();
    return 0;
}

CGEventRef CKeyboardListenerMac::StaticCallbackFunction(CGEventTapProxy, CGEventType type, CGEventRef event,
                                                        void *userInfo) {
    return static_cast<CKeyboardListenerMac *>(userInfo)->CallbackFunction(type, event);
}

CGEventRef CKeyboardListenerMac::CallbackFunction(CGEventType type, CGEventRef event) {
    switch (type) {
    case kCGEventMouseMoved: {
        const CGPoint point = CGEventGetLocation(event);
        emit signalMouseMessage(CKeyboardMessage(int(type), int(point.x), int(point.y)));
        break;
    }
    case kCGEventKeyDown:
        keyChanged(event, 1);
        break;
    case kCGEventKeyUp:
        keyChanged(event, 0);
        break;
    case kCGEventFlagsChanged:
        flagsChanged(event);
        break;
    case kCGEventTapDisabledByTimeout:
    case kCGEventTapDisabledByUserInput:
        // The system switches a tap off that was slow to answer, and others around sleep; without this the
        // pen would be dead from then on. A modifier that changed meanwhile was missed, so the count of
        // changes starts again from all released: otherwise it would be inverted.
        CGEventTapEnable(m_eventTap.Get(), true);
        m_control = m_shift = m_option = false;
        break;
    default:
        break;
    }
    return event;
}

void CKeyboardListenerMac::keyChanged(CGEventRef event, int state) {
    emit signalKeyboardMessage(CKeyboardMessage(keyCodeOf(event), state));
}

/// Counts changes, starting from all released. The event's flags are read and ignored on purpose: not every
/// keyboard's flags tell left from right.
void CKeyboardListenerMac::flagsChanged(CGEventRef event) {
    [[maybe_unused]] const CGEventFlags flags = CGEventGetFlags(event);
    const int keyCode = keyCodeOf(event);
    int state = 0;
    switch (keyCode) {
    case kVK_Shift:
        state = m_shift = !m_shift;
        break;
    case kVK_Option:
        state = m_option = !m_option;
        break;
    case kVK_Control:
        state = m_control = !m_control;
        break;
    default:
        break;
    }
    emit signalKeyboardMessage(CKeyboardMessage(keyCode, state));
}

CGEventMask CKeyboardListenerMac::CreateMask() {
    return CGEventMaskBit(kCGEventLeftMouseDown) | CGEventMaskBit(kCGEventLeftMouseUp) |
           CGEventMaskBit(kCGEventMouseMoved) | CGEventMaskBit(kCGEventKeyDown) |
           CGEventMaskBit(kCGEventKeyUp) | CGEventMaskBit(kCGEventFlagsChanged);
}

CFDataRef CKeyboardListenerMac::MessagePortCallback(CFMessagePortRef, SInt32, CFDataRef, void *) {
    KillFunction();
    return nullptr;
}

void CKeyboardListenerMac::KillFunction() {
    CFRunLoopStop(CFRunLoopGetCurrent());
}
