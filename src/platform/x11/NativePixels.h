// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

struct xcb_connection_t;
struct xcb_screen_t;

namespace vexa::platform {

/// The X screen that the toolkit is on.
const xcb_screen_t &screenOf(xcb_connection_t *connection);

/// Whether the server keeps the pixels of the screen as the toolkit keeps those of QImage::Format_RGB32, but
/// for the fourth byte, which the server leaves open.
bool hasNativePixels(xcb_connection_t *connection);

/// Whether those of a window of that screen are like this, too. Waits for the server.
bool hasNativePixels(xcb_connection_t *connection, quint32 window);

} // namespace vexa::platform
