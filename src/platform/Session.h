// SPDX-License-Identifier: MIT
#pragma once

/// The desktop session the program is to run in. Main thread.
namespace vexa::platform {

/// Sets the stage before the application object exists. Throws std::runtime_error, its text meant for the
/// user, when there is no session the program could run in; says on stderr what it has to do without. Waits
/// at most two seconds for a session bus that does not answer, and does without it then.
void prepareSession();

/// Call once the application object exists: the environment is the user's again, so that programs started
/// from here on inherit nothing of what the toolkit was told at its start.
void releaseEnvironment();

/// Whether the windows show but the pen's keys stay out of reach, as in a Wayland session.
bool penOutOfReach();

/// Whether what the windows are shown on has gone, or has closed the connection to it. Then nothing can be
/// shown any more, and the toolkit ends the program.
bool displayIsLost();

} // namespace vexa::platform
