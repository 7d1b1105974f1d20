// SPDX-License-Identifier: MIT
#include "platform/x11/input/ClickPing.h"

#include "platform/x11/input/Connection.h"

#include <algorithm>
#include <string_view>

#include <xcb/xcb.h>

namespace vexa::x11 {

namespace {

/// No window manager's own question bears this time, so our answer cannot be taken for one of theirs.
constexpr std::uint32_t ourTime = XCB_CURRENT_TIME;

xcb_atom_t atom(xcb_connection_t *x, std::string_view name) {
    const auto request = xcb_intern_atom(x, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(x, request, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

bool knows(xcb_connection_t *x, xcb_window_t window, xcb_atom_t protocols, xcb_atom_t protocol) {
    const auto request = xcb_get_property(x, 0, window, protocols, XCB_ATOM_ATOM, 0, 32);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(x, request, nullptr));
    if (!reply || reply->format != 32)
        return false;
    const auto *first = static_cast<const xcb_atom_t *>(xcb_get_property_value(reply.get()));
    const auto *end = first + reply->value_len;
    return std::find(first, end, protocol) != end;
}

} // namespace

ClickPing::ClickPing(platform::Pixels place) : m_connection(Connection::open()) {
    if (!m_connection)
        return;
    m_protocols = atom(m_connection->get(), "WM_PROTOCOLS");
    m_ping = atom(m_connection->get(), "_NET_WM_PING");
    ask(place);
}

ClickPing::~ClickPing() = default;

void ClickPing::ask(platform::Pixels place) {
    xcb_connection_t *x = m_connection->get();
    const xcb_window_t root = m_connection->root();
    // From the root down, through the frame that a window manager may have put around it.
    for (xcb_window_t window = root; m_window == 0;) {
        const auto request = xcb_translate_coordinates(x, root, window, static_cast<std::int16_t>(place.x),
                                                       static_cast<std::int16_t>(place.y));
        const Reply<xcb_translate_coordinates_reply_t> reply(
            xcb_translate_coordinates_reply(x, request, nullptr));
        if (!reply || reply->child == XCB_WINDOW_NONE)
            return m_connection.reset();
        window = reply->child;
        if (knows(x, window, m_protocols, m_ping))
            m_window = window;
    }

    // Answers are sent to the root window, for those who watch its children, or by Qt for those who watch it.
    const std::uint32_t answers = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(x, root, XCB_CW_EVENT_MASK, &answers);
    xcb_client_message_event_t question{};
    question.response_type = XCB_CLIENT_MESSAGE;
    question.format = 32;
    question.window = m_window;
    question.type = m_protocols;
    question.data.data32[0] = m_ping;
    question.data.data32[1] = ourTime;
    question.data.data32[2] = m_window;
    xcb_send_event(x, 0, m_window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char *>(&question));
    xcb_flush(x);
}

bool ClickPing::isAnswered() {
    while (m_connection) {
        const Reply<xcb_generic_event_t> event(xcb_poll_for_event(m_connection->get()));
        if (!event && !m_connection->isBroken())
            return false;
        const bool isMessage = event && (event->response_type & 0x7f) == XCB_CLIENT_MESSAGE;
        const auto *message = reinterpret_cast<const xcb_client_message_event_t *>(event.get());
        const bool isOurs = isMessage && message->type == m_protocols && message->data.data32[0] == m_ping &&
                            message->data.data32[1] == ourTime && message->data.data32[2] == m_window;
        if (!event || isOurs)
            m_connection.reset();
    }
    return true;
}

} // namespace vexa::x11
