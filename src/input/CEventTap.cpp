// SPDX-License-Identifier: MIT
#include "input/CEventTap.h"

void vexa::freeEventTap(CFMachPortRef tap) {
    CFMachPortInvalidate(tap);
    CFRelease(tap);
}
