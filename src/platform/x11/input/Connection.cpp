// SPDX-License-Identifier: MIT
#include "platform/x11/input/Connection.h"

#include <xcb/xcb.h>

namespace vexa::x11 {

std::unique_ptr<Connection> Connection::open() {
    auto connection = std::unique_ptr<Connection>(new Connection(xcb_connect(nullptr, nullptr)));
    return connection->isBroken() ? nullptr : std::move(connection);
}

Connection::~Connection() {
    xcb_disconnect(m_connection);
}

int Connection::fd() const {
    return xcb_get_file_descriptor(m_connection);
}

bool Connection::isBroken() const {
    return xcb_connection_has_error(m_connection) != 0;
}

std::uint32_t Connection::root() const {
    return xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
}

int Connection::colourDepth() const {
    return xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root_depth;
}

std::uint32_t Connection::clientId() const {
    return xcb_get_setup(m_connection)->resource_id_base;
}

bool Connection::has(xcb_extension_t &extension) const {
    const xcb_query_extension_reply_t *reply = xcb_get_extension_data(m_connection, &extension);
    return reply && reply->present;
}

bool Connection::succeeds(unsigned checkedRequest) const {
    const Reply<xcb_generic_error_t> error(xcb_request_check(m_connection, {checkedRequest}));
    return !error && !isBroken();
}

bool Connection::sync() {
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    return !dropEvents() && reply;
}

bool Connection::dropEvents() {
    bool refused = false;
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)})
        refused = refused || event->response_type == 0;
    return refused;
}

} // namespace vexa::x11
