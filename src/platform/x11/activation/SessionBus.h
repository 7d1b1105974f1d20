// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <memory>
#include <systemd/sd-bus.h>

namespace vexa::x11 {

struct CloseBus {
    void operator()(sd_bus *bus) const { sd_bus_close_unref(bus); }
};

/// A non-blocking connection to the session bus: all traffic is handled in process(). Closing it does not
/// wait either.
using SessionBus = std::unique_ptr<sd_bus, CloseBus>;

/// Begins to connect; calls made meanwhile are sent once the connection is up. Null where there is no session
/// bus: none is started.
SessionBus openSessionBus();

enum class BusState {
    Answers,
    Silent, ///< it is there, but frozen
    None,
};

/// Whether there is a session bus that answers. Waits for its answer for this long at most.
BusState askSessionBus(std::chrono::milliseconds patience);

} // namespace vexa::x11
