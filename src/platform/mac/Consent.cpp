// SPDX-License-Identifier: MIT
#include "platform/mac/Consent.h"

#include "platform/mac/LookUp.h"

namespace vexa::platform {

bool isAllowed(const char *question) {
    const auto ask = lookUp<bool()>(question);
    return !ask || ask();
}

} // namespace vexa::platform
