// SPDX-License-Identifier: MIT
#pragma once

/// The desktop session the program is to run in. Main thread.
namespace vexa::platform {

/// Prepares process and environment before the application object is made. Throws std::runtime_error, its
/// text meant for the user, when there is no session that the program can run in; reports on stderr what is
/// missing without being necessary. Waits at most two seconds for the session bus, then goes on without it.
void prepareSession();

/// Restores the user's environment. Call it once the application object exists, so that programs started from
/// then on do not inherit what prepareSession() has set for the toolkit.
void releaseEnvironment();

/// Whether the windows show but the pen's keys stay out of reach, as in a Wayland session.
bool penOutOfReach();

/// Whether the display server has ended or closed this program's connection. Then nothing can be shown any
/// more, and the toolkit ends the program.
bool displayIsLost();

} // namespace vexa::platform
