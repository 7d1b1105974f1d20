// SPDX-License-Identifier: MIT
#pragma once

#include <system_error>
#include <thread>
#include <utility>

namespace vexa {

/// Runs the body on the thread, which is none yet. False when the system has no thread to give: the user may
/// have no more of them (ulimit -u), or there is no memory for one. The caller then does the work itself.
template<typename Body> bool tryToStart(std::thread &thread, Body body) {
    try {
        thread = std::thread(std::move(body));
    } catch (const std::system_error &) {
        return false;
    }
    return true;
}

} // namespace vexa
