// SPDX-License-Identifier: MIT
#include "e2e/WindowWatch.h"

#include <QtGlobal>
#include <cstdlib>
#include <xcb/xcb.h>

namespace e2e {

namespace {

/// A window manager maps the frame, with the window in it or before it moves in; either way the two belong
/// together.
constexpr std::uint32_t watchedEvents = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;

} // namespace

void WindowWatch::Disconnect::operator()(xcb_connection_t *connection) const {
    xcb_disconnect(connection);
}

WindowWatch::WindowWatch() : m_connection(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(m_connection.get()))
        qFatal("the display cannot be watched");
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
    xcb_change_window_attributes(m_connection.get(), root, XCB_CW_EVENT_MASK, &watchedEvents);
    xcb_flush(m_connection.get());
    // The answer to this shows that the server has taken notice.
    std::free(
        xcb_get_input_focus_reply(m_connection.get(), xcb_get_input_focus(m_connection.get()), nullptr));
}

bool WindowWatch::wasShown(quint32 window) {
    readEvents();
    return m_shown.contains(window) || m_shown.contains(m_frames.value(window));
}

void WindowWatch::readEvents() {
    while (xcb_generic_event_t *const event = xcb_poll_for_event(m_connection.get())) {
        const int type = event->response_type & 0x7f;
        if (type == XCB_MAP_NOTIFY)
            m_shown.insert(reinterpret_cast<const xcb_map_notify_event_t *>(event)->window);
        if (type == XCB_REPARENT_NOTIFY) {
            const auto *const moved = reinterpret_cast<const xcb_reparent_notify_event_t *>(event);
            if (moved->parent != moved->event)
                m_frames.insert(moved->window, moved->parent);
        }
        std::free(event);
    }
}

} // namespace e2e
