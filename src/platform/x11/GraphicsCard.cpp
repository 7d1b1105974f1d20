// SPDX-License-Identifier: MIT
#include "platform/GraphicsCard.h"

#include "platform/x11/input/Connection.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include <xcb/xcb.h>

namespace vexa::platform {

namespace {

/// A program reaches a graphics card through one of these extensions; a server without them, a virtual or a
/// forwarded one, leaves programs a renderer that runs on the processor.
constexpr const char *cardExtensions[] = {"DRI3", "DRI2", "NV-GLX"};

bool serverOffersACard() {
    const auto connection = x11::Connection::open();
    const auto has = [&connection](const char *extension) {
        const auto asked =
            xcb_query_extension(connection->get(), std::uint16_t(std::strlen(extension)), extension);
        const x11::Reply<xcb_query_extension_reply_t> reply(
            xcb_query_extension_reply(connection->get(), asked, nullptr));
        return reply && reply->present;
    };
    return connection && std::any_of(std::begin(cardExtensions), std::end(cardExtensions), has);
}

} // namespace

bool graphicsCardDraws() {
    static const bool draws = serverOffersACard();
    return draws;
}

} // namespace vexa::platform
