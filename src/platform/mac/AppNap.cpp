// SPDX-License-Identifier: MIT
#include "platform/mac/AppNap.h"

#include "platform/mac/ObjectiveC.h"

namespace vexa::platform {

namespace {

// NSActivityUserInitiatedAllowingIdleSystemSleep, of Foundation's headers, which plain C++ cannot include.
constexpr unsigned long userInitiatedAllowingIdleSleep = 0x00FFFFFFUL & ~(1UL << 20);

} // namespace

// The activity lasts as long as the object that stands for it, which is never released.
void preventAppNap() {
    const AutoreleasePool pool;
    const id reason = send<id>(classNamed("NSString"), "stringWithUTF8String:", "listening to the pen");
    const id process = send<id>(classNamed("NSProcessInfo"), "processInfo");
    const id activity =
        send<id>(process, "beginActivityWithOptions:reason:", userInitiatedAllowingIdleSleep, reason);
    send<id>(activity, "retain");
}

} // namespace vexa::platform
