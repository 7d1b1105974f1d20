// SPDX-License-Identifier: MIT
#pragma once

#include "input/CKeyboardHandler.h"

#include <future>

/// A promise without shared state, which nobody waits for any more.
inline std::promise<CAnyKeyboardKiller> statelessPromise() {
    std::promise<CAnyKeyboardKiller> promise;
    std::promise<CAnyKeyboardKiller> &emptied = promise;
    const std::promise<CAnyKeyboardKiller> taken(std::move(emptied)); // what is moved from has none
    return promise;
}
