// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/input/EventTranslator.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace vexa::x11 {

class Connection;

/// Whether our listener is to report a faked key. With Yes it reports a release also when the key is up
/// already, so that the server sends no event.
enum class Seen : bool { No, Yes };

/// Fakes a key, a button, a pointer move. Sent, not flushed.
void fakeKey(const Connection &connection, bool down, XKeyCode key, Seen seen = Seen::Yes);
void fakeButton(const Connection &connection, bool down, std::uint8_t button);
void fakeMotion(const Connection &connection, platform::Pixels position);

/// From now on the recording, by its id in the server, holds this connection's requests that fake input. Does
/// nothing when the recording is gone already, or the connection is broken. The server has to have XTEST.
void recordFakes(const Connection &connection, std::uint32_t recording);

/// A key that a recorded request of ours is about to fake.
struct FakedKey {
    DeviceEvent::Type type;
    XKeyCode key;
    Seen seen;
};

/// Removes the first of the requests. Nothing when that one fakes no key.
std::optional<FakedKey> takeFakedKey(const std::uint8_t *&requests, std::size_t &size);

} // namespace vexa::x11
