// SPDX-License-Identifier: MIT
#include "input/CRunLoopSource.h"

void vexa::freeRunLoopSource(CFRunLoopSourceRef source) {
    CFRelease(source);
}
