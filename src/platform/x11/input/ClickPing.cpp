// SPDX-License-Identifier: MIT
#include "platform/x11/input/ClickPing.h"

#include "platform/x11/input/Connection.h"

#include <algorithm>
#include <string_view>

#include <xcb/xcb.h>
#include <xcb/xcbext.h>

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

/// From the root down, through the frame that a window manager may have put around it; XCB_NONE for nobody.
xcb_window_t whoKnows(const Connection &connection, platform::Pixels place, xcb_atom_t protocols,
                      xcb_atom_t protocol) {
    xcb_connection_t *x = connection.get();
    for (xcb_window_t window = connection.root();;) {
        const auto request =
            xcb_translate_coordinates(x, connection.root(), window, static_cast<std::int16_t>(place.x),
                                      static_cast<std::int16_t>(place.y));
        const Reply<xcb_translate_coordinates_reply_t> reply(
            xcb_translate_coordinates_reply(x, request, nullptr));
        if (!reply || reply->child == XCB_WINDOW_NONE)
            return XCB_NONE;
        window = reply->child;
        if (knows(x, window, protocols, protocol))
            return window;
    }
}

void watch(xcb_connection_t *x, xcb_window_t window, std::uint32_t events) {
    xcb_change_window_attributes(x, window, XCB_CW_EVENT_MASK, &events);
}

/// Also a refusal: all that can be refused here is about this window.
bool saysThatItHasGone(const xcb_generic_event_t &event, xcb_window_t window) {
    return event.response_type == 0 ||
           ((event.response_type & 0x7f) == XCB_DESTROY_NOTIFY &&
            reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window == window);
}

} // namespace

ClickPing::ClickPing(platform::Pixels place) : m_connection(Connection::open()) {
    if (!m_connection)
        return;
    m_protocols = atom(m_connection->get(), "WM_PROTOCOLS");
    m_ping = atom(m_connection->get(), "_NET_WM_PING");
    m_window = whoKnows(*m_connection, place, m_protocols, m_ping);
    if (m_window != XCB_NONE)
        watch(m_connection->get(), m_window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    // Answers are sent to the root window, for those who watch its children, or by Qt for those who watch it.
    watch(m_connection->get(), m_connection->root(),
          XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    askForButtons();
}

ClickPing::~ClickPing() = default;

bool ClickPing::isAnswered() {
    if (m_connection && isOver())
        m_connection.reset();
    return !m_connection;
}

bool ClickPing::isOver() {
    if (isEndTold())
        return true;
    if (m_isAsked || isHeldBack())
        return false;
    if (m_window == XCB_NONE)
        return true;
    askProgram();
    return false;
}

/// Reads what has arrived.
bool ClickPing::isEndTold() const {
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection->get())}) {
        const auto *message = reinterpret_cast<const xcb_client_message_event_t *>(event.get());
        const bool isAnswer = (event->response_type & 0x7f) == XCB_CLIENT_MESSAGE &&
                              message->type == m_protocols && message->data.data32[0] == m_ping &&
                              message->data.data32[1] == ourTime && message->data.data32[2] == m_window;
        if (isAnswer || saysThatItHasGone(*event, m_window))
            return true;
    }
    return m_connection->isBroken();
}

/// While a window manager holds a press back, the server keeps the release behind it to itself, and for its
/// clients the button is down. When all are up, both have gone to the program.
bool ClickPing::isHeldBack() {
    void *answer = nullptr;
    if (xcb_poll_for_reply(m_connection->get(), m_buttons, &answer, nullptr) == 0)
        return true; // as far as is known
    const Reply<xcb_query_pointer_reply_t> pointer(static_cast<xcb_query_pointer_reply_t *>(answer));
    // A left-handed user's map makes another one of the first button.
    constexpr unsigned buttons = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
    if (!pointer || (pointer->mask & buttons) == 0)
        return false;
    askForButtons();
    return true;
}

void ClickPing::askForButtons() {
    xcb_connection_t *x = m_connection->get();
    m_buttons = xcb_query_pointer(x, m_connection->root()).sequence;
    xcb_flush(x);
}

void ClickPing::askProgram() {
    xcb_client_message_event_t question{};
    question.response_type = XCB_CLIENT_MESSAGE;
    question.format = 32;
    question.window = m_window;
    question.type = m_protocols;
    question.data.data32[0] = m_ping;
    question.data.data32[1] = ourTime;
    question.data.data32[2] = m_window;
    xcb_connection_t *x = m_connection->get();
    xcb_send_event(x, 0, m_window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char *>(&question));
    xcb_flush(x);
    m_isAsked = true;
}

} // namespace vexa::x11
