// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace vexa::platform {

/// The icon of what the desktop lists: the panel, the guide and the tray icon. It is not set for the whole
/// application: the toolkit would send it, in all its sizes, twice for each overlay and prompt that opens,
/// and those are in no list. Null where the icon comes with the program's bundle. GUI thread.
QIcon programIcon();

} // namespace vexa::platform
