// SPDX-License-Identifier: MIT
#include "e2e/WindowWatch.h"

#include <QtGlobal>

namespace e2e {

namespace {

/// A window manager maps the frame, with the window in it or before it moves in; either way the two belong
/// together.
constexpr std::uint32_t watchedEvents = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;

} // namespace

WindowWatch::WindowWatch() : m_connection(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(m_connection.get()))
        qFatal("the display cannot be watched");
    xcb_change_window_attributes(m_connection.get(), xcb::root(m_connection.get()), XCB_CW_EVENT_MASK,
                                 &watchedEvents);
    xcb_flush(m_connection.get());
    // The answer to this shows that the server has taken notice.
    xcb::owned(
        xcb_get_input_focus_reply(m_connection.get(), xcb_get_input_focus(m_connection.get()), nullptr));
}

bool WindowWatch::wasShown(quint32 window) {
    readEvents();
    return m_shown.contains(window) || m_shown.contains(m_frames.value(window));
}

void WindowWatch::readEvents() {
    while (const auto event = xcb::owned(xcb_poll_for_event(m_connection.get()))) {
        const int type = xcb::typeOf(*event);
        if (type == XCB_MAP_NOTIFY)
            m_shown.insert(reinterpret_cast<const xcb_map_notify_event_t *>(event.get())->window);
        if (type == XCB_REPARENT_NOTIFY) {
            const auto *const moved = reinterpret_cast<const xcb_reparent_notify_event_t *>(event.get());
            if (moved->parent != moved->event)
                m_frames.insert(moved->window, moved->parent);
        }
    }
}

} // namespace e2e
