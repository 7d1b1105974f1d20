// SPDX-License-Identifier: MIT
#include "platform/x11/input/RecordedData.h"

#include "platform/x11/input/EventTranslator.h"
#include "platform/x11/input/FakeInput.h"

#include <cstring>

#include <xcb/xproto.h>

namespace vexa::x11 {

namespace {

constexpr std::size_t eventSize = 32; // bytes

} // namespace

void takeDeviceEvents(const std::uint8_t *data, std::size_t size, EventTranslator &translator) {
    for (; size >= eventSize; data += eventSize, size -= eventSize) {
        xcb_key_press_event_t event; // the five kinds have the same shape
        std::memcpy(&event, data, sizeof event);
        translator.take({static_cast<DeviceEvent::Type>(event.response_type),
                         event.detail,
                         {event.root_x, event.root_y},
                         event.state});
    }
}

void takeFakeRequests(const std::uint8_t *data, std::size_t size, EventTranslator &translator) {
    while (size > 0) {
        const auto faked = takeFakedKey(data, size);
        if (faked && faked->seen == Seen::No)
            translator.hideNext(faked->type, faked->key);
        else if (faked && faked->type == DeviceEvent::KeyRelease)
            translator.letGo(faked->key);
    }
}

} // namespace vexa::x11
