// SPDX-License-Identifier: MIT
#include "platform/Session.h"

namespace vexa::platform {

// Every program that macOS starts has a session, and its texts are sized as the program wants them.
void prepareSession() {}

void releaseEnvironment() {}

bool penOutOfReach() {
    return false;
}

} // namespace vexa::platform
