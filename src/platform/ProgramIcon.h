// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace vexa::platform {

/// What a window that the desktop lists among the user's shows of the program: the panel, the guide, the
/// tray. Not the icon of all windows: the toolkit would send it, in all its sizes, twice to each overlay and
/// prompt that is opened, and no list has these. Null where it comes with the program's bundle. GUI thread.
QIcon programIcon();

} // namespace vexa::platform
