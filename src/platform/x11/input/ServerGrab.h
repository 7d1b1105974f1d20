// SPDX-License-Identifier: MIT
#pragma once

struct xcb_connection_t;

namespace vexa::x11 {

/// Grabs the X server for as long as it lives: the requests of all other clients wait. The end of the grab is
/// flushed at once, so that they wait no longer than needed. The connection is not owned; on a broken one
/// nothing happens.
class ServerGrab {
public:
    explicit ServerGrab(xcb_connection_t *connection);
    ~ServerGrab();
    ServerGrab(const ServerGrab &) = delete;
    ServerGrab &operator=(const ServerGrab &) = delete;

private:
    xcb_connection_t *const m_connection;
};

} // namespace vexa::x11
