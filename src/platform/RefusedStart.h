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

/// Tells the user in a dialog of the system why the program ends before its first window; returns when the
/// dialog is closed. Does nothing, and does not call `words`, where the user who started the program can see
/// its stderr. Main thread.
void showRefusedStart(RefusalWords (*words)());

} // namespace vexa::platform
