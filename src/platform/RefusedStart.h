// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace vexa::platform {

/// What a refused start tells the user: that permissions are missing, which, and the button's text.
struct RefusalWords {
    QString heading;
    QString permission;
    QString button;
};

/// Tells the user why the program ends before its first window, in a window of the system's own, and returns
/// when that was read. Does nothing where the user who started the program sees its stderr: the words
/// are not asked for then. Main thread.
void showRefusedStart(RefusalWords (*words)());

} // namespace vexa::platform
