// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

/// The program's main window, shown again when the user activates the running program (dock icon, second
/// start, launcher). Null until main has built it; not owned.
extern QWidget *Window1;

/// Installs what re-shows Window1 on activation. Without the means for it (no application object, no display,
/// no session bus) the program runs on without. GUI thread, once, after the application object exists.
void setupDockClickHandler();

namespace vexa::platform {

/// Makes this process the one instance on its display, for as long as it lives, or asks the one that is
/// there already to show its window. True when that one has been asked, and this process should end. False
/// also where there is no way to find out. Throws std::runtime_error, its text meant for the user, when the
/// other one has not answered for two seconds. Main thread, before anything else is started.
bool forwardActivation();

/// What an activation does: shows Window1 in front of the other windows. While there is no Window1 yet, it is
/// remembered. GUI thread.
void activateWindow();

/// Call once, when Window1 is set and shown. Soon after the start that window hides itself; if the user has
/// activated the program before that, it is shown again then. GUI thread.
void awaitWithdrawal();

} // namespace vexa::platform
