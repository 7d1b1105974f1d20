// SPDX-License-Identifier: MIT
#include "platform/x11/input/FakeInput.h"

#include "platform/x11/input/Connection.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include <xcb/record.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

namespace vexa::x11 {

namespace {

// The server ignores the position in a request that fakes a key, but records the request whole: the position
// carries the mark from the posting connection to the recording one.
constexpr std::int16_t hiddenMark = 1;

std::int16_t coordinate(int value) {
    constexpr int lowest = std::numeric_limits<std::int16_t>::min();
    constexpr int highest = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::min(std::max(value, lowest), highest));
}

} // namespace

void fakeKey(const Connection &connection, bool down, XKeyCode key, Seen seen) {
    xcb_test_fake_input(connection.get(), down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, key, XCB_CURRENT_TIME,
                        XCB_NONE, seen == Seen::No ? hiddenMark : std::int16_t{0}, 0, 0);
}

void fakeButton(const Connection &connection, bool down, std::uint8_t button) {
    xcb_test_fake_input(connection.get(), down ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE, button,
                        XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
}

void fakeMotion(const Connection &connection, platform::Pixels position) {
    const std::uint8_t absolute = 0;
    xcb_test_fake_input(connection.get(), XCB_MOTION_NOTIFY, absolute, XCB_CURRENT_TIME, connection.root(),
                        coordinate(position.x), coordinate(position.y), 0);
}

void recordFakes(const Connection &connection, std::uint32_t recording) {
    const xcb_query_extension_reply_t *const xtest = xcb_get_extension_data(connection.get(), &xcb_test_id);
    if (!xtest)
        return; // the connection is broken; the next one joins the recording when it is made
    const std::uint8_t opcode = xtest->major_opcode;
    xcb_record_range_t range{};
    range.ext_requests.major = {opcode, opcode};
    range.ext_requests.minor = {XCB_TEST_FAKE_INPUT, XCB_TEST_FAKE_INPUT};
    const xcb_record_client_spec_t us = connection.clientId();
    connection.succeeds(
        xcb_record_register_clients_checked(connection.get(), recording, 0, 1, 1, &us, &range).sequence);
}

std::optional<FakedKey> takeFakedKey(const std::uint8_t *&requests, std::size_t &size) {
    xcb_test_fake_input_request_t fake{};
    const std::size_t taken = std::min(size, sizeof fake);
    std::memcpy(&fake, requests, taken);
    requests += taken;
    size -= taken;
    const bool isKey = fake.type == XCB_KEY_PRESS || fake.type == XCB_KEY_RELEASE;
    if (taken < sizeof fake || fake.minor_opcode != XCB_TEST_FAKE_INPUT || !isKey)
        return std::nullopt;
    return FakedKey{static_cast<DeviceEvent::Type>(fake.type), fake.detail,
                    fake.rootX == hiddenMark ? Seen::No : Seen::Yes};
}

} // namespace vexa::x11
