// SPDX-License-Identifier: MIT
#include "platform/x11/input/ServerGrab.h"

#include <xcb/xcb.h>

namespace vexa::x11 {

ServerGrab::ServerGrab(xcb_connection_t *connection) : m_connection(connection) {
    xcb_grab_server(m_connection);
}

ServerGrab::~ServerGrab() {
    xcb_ungrab_server(m_connection);
    xcb_flush(m_connection);
}

} // namespace vexa::x11
