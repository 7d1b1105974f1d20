// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <memory>
#include <systemd/sd-bus.h>

namespace vexa::x11 {

struct CloseBus {
    void operator()(sd_bus *bus) const { sd_bus_close_unref(bus); }
};

/// A connection to the session bus that nobody waits for: everything on it happens in process(). Closed
/// without waiting when it goes.
using SessionBus = std::unique_ptr<sd_bus, CloseBus>;

/// A connection that is being made; calls on it are sent when it stands. Null where there is no session bus.
/// Starts none.
SessionBus openSessionBus();

enum class BusState {
    Answers,
    Silent, ///< it is there, but frozen
    None,
};

/// Whether there is a session bus that answers. Waits for its answer for this long at most.
BusState askSessionBus(std::chrono::milliseconds patience);

} // namespace vexa::x11
