// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

struct xcb_connection_t;
struct xcb_screen_t;

namespace vexa::platform {

// GUI thread, since they ask the toolkit for its X screen.

/// The X screen that the toolkit is on. The connection owns it.
const xcb_screen_t &screenOf(xcb_connection_t *connection);

/// Whether the server keeps the pixels of the screen as the toolkit keeps those of QImage::Format_RGB32, but
/// for the fourth byte, which the server leaves open.
bool hasNativePixels(xcb_connection_t *connection);

/// The same for the pixels of one window on that screen. Waits for the server; false when it has no such
/// window.
bool hasNativePixels(xcb_connection_t *connection, quint32 window);

} // namespace vexa::platform
