// SPDX-License-Identifier: MIT
#pragma once

#include <ApplicationServices/ApplicationServices.h>
#include <cstdint>
#include <string>
#include <vector>

namespace fakes {

/// What an event tap was asked for.
struct TapRequest {
    CGEventTapLocation location = kCGHIDEventTap;
    CGEventTapPlacement placement = kCGTailAppendEventTap;
    CGEventTapOptions options = kCGEventTapOptionDefault;
    CGEventMask mask = 0;
};

/// What the system has shown the user, and waited for.
struct Alert {
    double timeout = -1;
    std::string heading;
    std::string text;
    std::string button;
};

/// An event as it was posted, or as it is sent to the taps.
struct InputEvent {
    CGEventType type = kCGEventNull;
    std::int64_t keyCode = 0;
    CGEventFlags flags = 0;
    CGPoint point{0, 0};
    CGMouseButton button = kCGMouseButtonLeft;
    CGEventTapLocation location = kCGSessionEventTap; ///< where it was posted
    bool privateSource = false;                       ///< posted from a source with a state of its own
};

/// The window server and the name server of the fake Core Graphics and Core Foundation, while this lives; one
/// at a time. Run loops, ports and taps work across threads as the real ones do; what a tap hears is told to
/// it on the thread whose run loop has its source.
class Quartz {
public:
    Quartz();
    ~Quartz();
    Quartz(const Quartz &) = delete;
    Quartz &operator=(const Quartz &) = delete;

    // Set before the program asks.
    bool permitsTaps = true;
    CGEventMask withheld = 0; ///< events that a tap does not get although it asked for them
    bool permitsLocalPorts = true;
    bool permitsRemotePorts = true;
    bool permitsEvents = true;
    CGEventFlags held = 0; ///< what the session's keyboards hold, which a new key event starts with

    /// Sends the event to every enabled tap whose mask has its type, and waits until all have heard it. False
    /// when there was none to hear it.
    bool send(const InputEvent &event);

    /// Disables all taps, telling them so as the system does: by an event of this type, whatever their mask.
    void disableTaps(CGEventType type);

    /// What was asked of the system so far, in order and on whatever thread, one "function arguments" each.
    /// Running a loop and looking into an event, but for its flags, are not among it.
    std::vector<std::string> calls() const;

    std::vector<TapRequest> taps() const;
    int enabledTaps() const;
    std::vector<InputEvent> posted() const;
    std::vector<Alert> alerts() const;
    /// Taps, ports, run-loop sources and texts that have not been released.
    int objectsAlive() const;
    /// Posted events that have not been released.
    int eventsAlive() const;
    /// Whether every tap gave back the very event it was handed, unchanged.
    bool swallowsNothing() const;
};

} // namespace fakes
