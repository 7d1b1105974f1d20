// SPDX-License-Identifier: MIT
#pragma once

#include <qwindowdefs.h>

/// What the X server knows of a window, asked over a connection of its own: what has not been sent yet is not
/// seen.
namespace vexa::test {

/// The opacity asked of a compositing manager, 0 to 1.
double opacityOnServer(WId window);

/// Whether the window's shape has any area.
bool hasAreaOnServer(WId window);

/// Whether the window is out of the window manager's hands.
bool isUnmanagedOnServer(WId window);

/// Whether compositing managers take it for a window that draws its own shadow.
bool isToldToHaveNoShadow(WId window);

bool isWindowManagerRunning();

} // namespace vexa::test
