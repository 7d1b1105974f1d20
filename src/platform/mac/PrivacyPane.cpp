// SPDX-License-Identifier: MIT
#include "platform/ScreenCapture.h"
#include "platform/mac/Consent.h"
#include "platform/mac/ObjectiveC.h"

namespace vexa::platform {

void openScreenRecordingSettings() {
    isAllowed("CGRequestScreenCaptureAccess"); // the pane lists only programs that have asked
    const AutoreleasePool pool;
    const id text = send<id>(classNamed("NSString"), "stringWithUTF8String:",
                             "x-apple.systempreferences:com.apple.preference.security?Privacy_ScreenCapture");
    const id url = send<id>(classNamed("NSURL"), "URLWithString:", text);
    if (url)
        send<BOOL>(send<id>(classNamed("NSWorkspace"), "sharedWorkspace"), "openURL:", url);
}

} // namespace vexa::platform
