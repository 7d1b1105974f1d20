// SPDX-License-Identifier: MIT
#include "platform/mac/DisplayImage.h"

#include <dlfcn.h>

namespace vexa::platform {

CGImageRef createDisplayImage(CGDirectDisplayID display, CGRect rect) {
    using Function = CGImageRef (*)(CGDirectDisplayID, CGRect);
    const auto function = reinterpret_cast<Function>(dlsym(RTLD_DEFAULT, "CGDisplayCreateImageForRect"));
    return function ? function(display, rect) : nullptr;
}

} // namespace vexa::platform
