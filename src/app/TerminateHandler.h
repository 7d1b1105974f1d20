// SPDX-License-Identifier: MIT
#pragma once

namespace vexa {

/// For std::set_terminate: reports the uncaught exception in one line on stderr and ends the process with
/// exit code 1, without a core dump. A listener that cannot start is for the user to solve, not a crash:
/// where the desktop hides stderr, a window tells the user which permission is missing.
[[noreturn]] void reportUncaughtAndExit() noexcept;

/// Reports in one line on stderr that the keyboard and the pointer of the session cannot be listened to.
void reportCannotListen() noexcept;

/// Reports in one line on stderr that the connection to the display is lost.
void reportLostDisplay() noexcept;

} // namespace vexa
