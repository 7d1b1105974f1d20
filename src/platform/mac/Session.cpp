// SPDX-License-Identifier: MIT
#include "platform/Session.h"

#include <QByteArray>

namespace vexa::platform {

// Every program that macOS starts has a session, and its texts are sized as the program wants them. The
// views' script engine compiles into memory that the hardened runtime does not let a program run; it
// interprets instead, which these views do not feel.
void prepareSession() {
    qputenv("QV4_FORCE_INTERPRETER", QByteArrayLiteral("1"));
}

// What was set is read when the first view is loaded, so it stays. The one program that inherits it,
// osascript, does not know it; links and panes are opened by the system.
void releaseEnvironment() {}

bool penOutOfReach() {
    return false;
}

// The system ends a program before it takes its session away.
bool displayIsLost() {
    return false;
}

} // namespace vexa::platform
