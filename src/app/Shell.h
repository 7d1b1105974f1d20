// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <chrono>

namespace vexa {

/// Runs a command line in the system's shell and returns whether it has ended with exit code 0. An event loop
/// runs meanwhile, so that the program goes on handling events, also a request to quit.
///
/// A command that takes longer than the limit, or still runs when the program is asked to quit, is killed
/// together with the processes that it has started, and counts as failed. GUI thread.
bool runInShell(const QString &command, std::chrono::milliseconds limit);

} // namespace vexa
