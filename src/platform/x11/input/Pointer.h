// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ScreenPlace.h"

#include <cstdint>
#include <optional>

namespace vexa::x11 {

class Connection;

struct PointerState {
    platform::Pixels position;
    std::uint16_t buttons; ///< and modifiers that are down
};

/// Where the pointer is now. Nothing when the server does not answer.
std::optional<PointerState> pointerState(const Connection &connection);

/// From now on the connection receives an event, and nothing else of that kind, whenever a device moves the
/// pointer, also while another client grabs it. False when the server cannot do that.
bool selectPointerMoves(const Connection &connection);

/// Takes the events off that have arrived on the connection. True when a move was among them.
bool takePointerMoves(const Connection &connection);

} // namespace vexa::x11
