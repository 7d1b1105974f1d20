// SPDX-License-Identifier: MIT
#pragma once

#include <dlfcn.h>

namespace vexa::platform {

/// The function of the running system that has this name, null where there is none: for functions that older
/// systems do not have yet, or newer ones no longer. The type is the caller's word. Any thread.
template<typename Function> Function *lookUp(const char *name) {
    return reinterpret_cast<Function *>(dlsym(RTLD_DEFAULT, name));
}

} // namespace vexa::platform
