// SPDX-License-Identifier: MIT
#pragma once

/// What the user can ask of the program from outside its panel: by a second start, the launcher or the tray.
/// GUI thread.
namespace vexa::platform {

/// Shows the panel and gives it the focus.
void showPanelForUser();

/// Ends the program, also during a dialog: when the event loop comes to it.
void quitForUser();

} // namespace vexa::platform
