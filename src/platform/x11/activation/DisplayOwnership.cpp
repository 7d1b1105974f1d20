// SPDX-License-Identifier: MIT
#include "platform/x11/activation/DisplayOwnership.h"

#include <array>
#include <cstring>
#include <poll.h>
#include <utility>

#include <xcb/xcb.h>

namespace vexa::x11 {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr std::size_t eventBytes = 32;     ///< of every event on the wire, however few its structure has
constexpr std::uint8_t typeOfEvent = 0x7f; ///< the other bit says that a client sent it

std::uint32_t makeHiddenWindow(Connection &connection) {
    xcb_connection_t *const xcb = connection.get();
    const std::uint32_t window = xcb_generate_id(xcb);
    const std::uint32_t unmanaged = 1;
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, window, connection.root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
                      &unmanaged);
    return window;
}

} // namespace

std::unique_ptr<DisplayOwnership> DisplayOwnership::open() {
    auto connection = Connection::open();
    if (!connection)
        return nullptr;
    return std::unique_ptr<DisplayOwnership>(new DisplayOwnership(std::move(connection)));
}

DisplayOwnership::DisplayOwnership(std::unique_ptr<Connection> connection)
    : m_connection(std::move(connection))
    , m_selection(atom("VEXA_ORBILO"))
    , m_showPanel(atom("VEXA_ORBILO_SHOW_PANEL"))
    , m_ready(atom("VEXA_ORBILO_READY"))
    , m_window(makeHiddenWindow(*m_connection)) {}

std::uint32_t DisplayOwnership::atom(const char *name) const {
    xcb_connection_t *const xcb = m_connection->get();
    const auto length = static_cast<std::uint16_t>(std::strlen(name));
    const Reply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(xcb, xcb_intern_atom(xcb, 0, length, name), nullptr));
    return reply ? reply->atom : std::uint32_t{XCB_ATOM_NONE};
}

std::uint32_t DisplayOwnership::owner() const {
    xcb_connection_t *const xcb = m_connection->get();
    const Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(xcb, xcb_get_selection_owner(xcb, m_selection), nullptr));
    return reply ? reply->owner : std::uint32_t{XCB_WINDOW_NONE};
}

bool DisplayOwnership::claim() {
    // Of two instances that start at the same time the second must find the first, so no other client may
    // act between the look and the claim: the server is grabbed.
    xcb_connection_t *const xcb = m_connection->get();
    xcb_grab_server(xcb);
    if (owner() == XCB_WINDOW_NONE)
        xcb_set_selection_owner(xcb, m_window, m_selection, XCB_CURRENT_TIME);
    const bool ours = owner() == m_window;
    xcb_ungrab_server(xcb);
    xcb_flush(xcb);
    return ours;
}

bool DisplayOwnership::isReady(std::uint32_t window) const {
    xcb_connection_t *const xcb = m_connection->get();
    const auto request = xcb_get_property(xcb, 0, window, m_ready, XCB_ATOM_ANY, 0, 0);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(xcb, request, nullptr));
    return reply && reply->type != XCB_ATOM_NONE;
}

void DisplayOwnership::announceReady() {
    const std::uint8_t yes = 1;
    xcb_change_property(m_connection->get(), XCB_PROP_MODE_REPLACE, m_window, m_ready, XCB_ATOM_CARDINAL, 8,
                        1, &yes);
    xcb_flush(m_connection->get());
}

DisplayOwnership::Answer DisplayOwnership::activateOther(milliseconds patience) {
    xcb_connection_t *const xcb = m_connection->get();
    m_connection->dropEvents(); // left over from an earlier request
    const std::uint32_t asked = owner();
    if (asked == XCB_WINDOW_NONE)
        return isBroken() ? Answer::NoServer : Answer::Gone;
    const std::uint32_t itsEnd = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(xcb, asked, XCB_CW_EVENT_MASK, &itsEnd);
    xcb_convert_selection(xcb, m_window, m_selection, m_showPanel, m_showPanel, XCB_CURRENT_TIME);
    // Before that it reads nothing, but loses nothing either.
    if (!isReady(asked) && owner() == asked)
        return Answer::Starting;
    return awaitAnswer(asked, patience);
}

DisplayOwnership::Answer DisplayOwnership::awaitAnswer(std::uint32_t asked, milliseconds patience) {
    xcb_connection_t *const xcb = m_connection->get();
    const auto end = Clock::now() + patience;
    while (!isBroken()) {
        while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(xcb)}) {
            const int type = event->response_type & typeOfEvent;
            if (type == 0 || type == XCB_DESTROY_NOTIFY) // refused, since there is no such window any more
                return Answer::Gone;
            const auto *const notice = reinterpret_cast<const xcb_selection_notify_event_t *>(event.get());
            if (type == XCB_SELECTION_NOTIFY && notice->property != XCB_ATOM_NONE)
                return Answer::Activated;
            if (type == XCB_SELECTION_NOTIFY)
                return owner() == asked ? Answer::Silent : Answer::Gone;
        }
        const auto left = std::chrono::duration_cast<milliseconds>(end - Clock::now());
        if (left.count() <= 0)
            break;
        pollfd readable{fd(), POLLIN, 0};
        poll(&readable, 1, static_cast<int>(left.count()));
    }
    return isBroken() ? Answer::NoServer : Answer::Silent;
}

DisplayOwnership::News DisplayOwnership::read() {
    xcb_connection_t *const xcb = m_connection->get();
    News news;
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(xcb)}) {
        const int type = event->response_type & typeOfEvent;
        if (type == XCB_SELECTION_CLEAR) {
            news.lost = true;
        } else if (type == XCB_SELECTION_REQUEST) {
            const auto *const request = reinterpret_cast<const xcb_selection_request_event_t *>(event.get());
            const bool known = request->target == m_showPanel && request->property != XCB_ATOM_NONE;
            news.activated = news.activated || known;
            xcb_selection_notify_event_t answer{};
            answer.response_type = XCB_SELECTION_NOTIFY;
            answer.time = request->time;
            answer.requestor = request->requestor;
            answer.selection = request->selection;
            answer.target = request->target;
            answer.property = known ? request->property : xcb_atom_t{XCB_ATOM_NONE};
            std::array<char, eventBytes> wire{};
            std::memcpy(wire.data(), &answer, sizeof answer);
            xcb_send_event(xcb, 0, request->requestor, XCB_EVENT_MASK_NO_EVENT, wire.data());
        }
    }
    xcb_flush(xcb);
    return news;
}

} // namespace vexa::x11
