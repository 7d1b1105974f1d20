// SPDX-License-Identifier: MIT
#pragma once

namespace vexa {

/// For std::set_terminate: says in one line on stderr what nobody caught and ends the process with 1. A
/// listener that cannot start is the user's to solve, not a crash: nothing is dumped, and on a desktop where
/// nobody reads stderr the user is shown what is missing.
[[noreturn]] void reportUncaughtAndExit() noexcept;

/// Says in one line on stderr that the session cannot be listened to.
void reportDeafness() noexcept;

} // namespace vexa
