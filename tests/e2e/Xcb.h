// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

/// Plain talk with an X server.
namespace e2e::xcb {

struct Disconnect {
    void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
};
using Connection = std::unique_ptr<xcb_connection_t, Disconnect>;

/// What the server has sent, null when it has not.
template<typename T> std::unique_ptr<T, decltype(&std::free)> owned(T *sent) {
    return {sent, &std::free};
}

inline xcb_window_t root(xcb_connection_t *connection) {
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

inline xcb_atom_t atom(xcb_connection_t *connection, const char *name) {
    const auto length = static_cast<std::uint16_t>(qstrlen(name));
    const auto reply =
        owned(xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 0, length, name), nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

// At most 4 MiB of it.
inline QByteArray property(xcb_connection_t *connection, xcb_window_t window, xcb_atom_t name) {
    constexpr std::uint32_t mostWords = 1 << 20;
    const auto request = xcb_get_property(connection, 0, window, name, XCB_ATOM_ANY, 0, mostWords);
    const auto reply = owned(xcb_get_property_reply(connection, request, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char *>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

inline int typeOf(const xcb_generic_event_t &event) {
    return event.response_type & 0x7f; // the other bit says that a client sent it
}

} // namespace e2e::xcb
