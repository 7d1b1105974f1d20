// SPDX-License-Identifier: MIT
#include "app/AbruptExit.h"

#include <atomic>
#include <cstdlib>

namespace vexa {

namespace {

std::atomic<bool> armed{false};

void endOnTheSpot() {
    if (armed)
        std::_Exit(EXIT_FAILURE);
}

} // namespace

AbruptExit::AbruptExit() {
    armed = true;
    // Handlers run in the reverse order of their registration, and with the destructors of static objects:
    // this one comes before those of all that exists by now. One that cannot be registered leaves exit() as
    // it is.
    [[maybe_unused]] const int refused = std::atexit(endOnTheSpot);
}

AbruptExit::~AbruptExit() {
    armed = false;
}

} // namespace vexa
