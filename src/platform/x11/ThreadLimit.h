// SPDX-License-Identifier: MIT
#pragma once

namespace vexa::platform {

/// Throws std::runtime_error, its text meant for the user, where the process may not have as many threads at
/// once as the program takes: the toolkit waits for ever for one that could not be started, and the program
/// could only be killed. Any thread.
void requireThreads();

} // namespace vexa::platform
