// SPDX-License-Identifier: MIT
#pragma once

#include <system_error>
#include <thread>
#include <utility>

namespace vexa {

/// Starts the body on `thread`, which must not be running yet. False when the system refuses another thread:
/// the user's limit is reached (ulimit -u), or memory is short. The caller then does the work itself.
template<typename Body> bool tryToStart(std::thread &thread, Body body) {
    try {
        thread = std::thread(std::move(body));
    } catch (const std::system_error &) {
        return false;
    }
    return true;
}

} // namespace vexa
