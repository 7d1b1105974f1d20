// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

namespace vexa::x11 {

class EventTranslator;

/// Hand to the translator what a record holds: events of devices, or requests of ours that fake some. The
/// bytes come from the server and may be anything; what is cut off at their end is left.
void takeDeviceEvents(const std::uint8_t *data, std::size_t size, EventTranslator &translator);
void takeFakeRequests(const std::uint8_t *data, std::size_t size, EventTranslator &translator);

} // namespace vexa::x11
