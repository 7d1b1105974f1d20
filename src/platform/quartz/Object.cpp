// SPDX-License-Identifier: MIT
#include "platform/quartz/Object.h"

#include "platform/quartz/CoreFoundation.h"

using vexa::quartz::Object;

CFTypeRef CFRetain(CFTypeRef object) {
    static_cast<const Object *>(object)->retain();
    return object;
}

void CFRelease(CFTypeRef object) {
    static_cast<const Object *>(object)->release();
}
