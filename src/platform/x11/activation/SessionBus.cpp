// SPDX-License-Identifier: MIT
#include "platform/x11/activation/SessionBus.h"

namespace vexa::x11 {

SessionBus openSessionBus() {
    sd_bus *bus = nullptr;
    if (sd_bus_open_user(&bus) < 0)
        return nullptr;
    return SessionBus(bus);
}

BusState askSessionBus(std::chrono::milliseconds patience) {
    using std::chrono::microseconds;
    const SessionBus bus = openSessionBus();
    const auto end = std::chrono::steady_clock::now() + patience;
    while (bus && sd_bus_is_open(bus.get()) > 0) {
        const int progress = sd_bus_process(bus.get(), nullptr);
        if (progress < 0)
            break;
        if (sd_bus_is_ready(bus.get()) > 0)
            return BusState::Answers;
        const auto left = std::chrono::duration_cast<microseconds>(end - std::chrono::steady_clock::now());
        if (left.count() <= 0)
            return BusState::Silent;
        if (progress == 0)
            sd_bus_wait(bus.get(), static_cast<std::uint64_t>(left.count()));
    }
    return BusState::None;
}

} // namespace vexa::x11
