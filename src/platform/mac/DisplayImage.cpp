// SPDX-License-Identifier: MIT
#include "platform/mac/DisplayImage.h"

#include "platform/mac/LookUp.h"

namespace vexa::platform {

CGImageRef createDisplayImage(CGDirectDisplayID display, CGRect rect) {
    const auto create = lookUp<CGImageRef(CGDirectDisplayID, CGRect)>("CGDisplayCreateImageForRect");
    return create ? create(display, rect) : nullptr;
}

} // namespace vexa::platform
