// SPDX-License-Identifier: MIT
#pragma once

namespace vexa {

/// For std::set_terminate: reports the uncaught exception in one line on stderr and ends the process with 1.
/// A listener that cannot start is for the user to solve, not a crash: there is no core dump, and on a
/// desktop that hides stderr the user is shown what is missing.
[[noreturn]] void reportUncaughtAndExit() noexcept;

/// Says in one line on stderr that the session cannot be listened to.
void reportDeafness() noexcept;

/// The same of a display that the program had.
void reportLostDisplay() noexcept;

} // namespace vexa
