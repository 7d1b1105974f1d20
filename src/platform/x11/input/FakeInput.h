// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/x11/input/EventTranslator.h"

namespace vexa::x11 {

class Connection;

/// Whether our listener is to see a faked key.
enum class Seen : bool { No, Yes };

/// Fakes a key, a button, a pointer move. Sent, not flushed.
void fakeKey(const Connection &connection, bool down, XKeyCode key, Seen seen = Seen::Yes);
void fakeButton(const Connection &connection, bool down, std::uint8_t button);
void fakeMotion(const Connection &connection, Pixels position);

/// The key event that recorded requests of ours are about to cause and that our listener is not to see.
struct HiddenKey {
    DeviceEvent::Type type;
    XKeyCode key;
};
std::optional<HiddenKey> hiddenKeyOf(const std::uint8_t *requests, std::size_t size);

} // namespace vexa::x11
