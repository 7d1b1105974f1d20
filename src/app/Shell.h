// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <chrono>

namespace vexa {

/// Runs a command line in the system's shell and returns whether it has ended with 0. The event loop goes on
/// meanwhile: whatever the program is sent, a request to end included, is answered before this returns.
///
/// A command that takes longer than the limit, or is under way when the program is to end, is killed with all
/// that it has started. GUI thread.
bool runInShell(const QString &command, std::chrono::milliseconds limit);

} // namespace vexa
