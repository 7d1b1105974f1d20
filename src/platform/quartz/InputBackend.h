// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>

/// What a session's input looks like to the portable event tap, and how input is put back into the session.
/// One implementation per window system; everything above this header is the same on all of them.
namespace vexa {

/// One event in the product's units: macOS event types and virtual key codes, pointer positions in points
/// from the top-left corner of the primary screen.
struct InputEvent {
    std::uint32_t type = 0;   ///< 1 left down, 2 left up, 5 moved, 10 key down, 11 key up, 12 flags changed
    std::int64_t keyCode = 0; ///< virtual key code; key events only
    std::uint64_t flags = 0;  ///< modifier flags; key events only
    double x = 0;             ///< points; pointer events only
    double y = 0;
    std::uint32_t button = 0; ///< 0 left; pointer events only
};

/// A stream of the session's input. Used on the thread that opened it, and destroyed there.
class InputSource {
public:
    virtual ~InputSource() = default;

    /// A descriptor that becomes readable when next() may have something. Owned by the source.
    virtual int fd() const = 0;

    /// Takes the next event. False when none is waiting: does not wait for one, but may for the session's
    /// answer to a question. Throws std::exception when there will never be one again.
    virtual bool next(InputEvent &event) = 0;
};

/// A way into the session's input. Both functions may be called from different threads.
class InputBackend {
public:
    virtual ~InputBackend() = default;

    /// Starts listening. Null when the session does not permit it.
    virtual std::unique_ptr<InputSource> open() = 0;

    /// Posts an event into the session, in the order of the calls, without blocking: where a session needs
    /// some time between two events the backend queues the later one. False when it could not be posted.
    virtual bool post(const InputEvent &event) = 0;
};

/// The backend that the portable taps and posts use. Never null; until one is set, a backend that permits
/// nothing.
InputBackend &inputBackend();

/// Sets the backend; null sets the one that permits nothing. Not owned; call while no tap exists.
void setInputBackend(InputBackend *backend);

} // namespace vexa
