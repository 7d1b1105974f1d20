// SPDX-License-Identifier: MIT
#include "platform/GraphicsCard.h"

namespace vexa::platform {

// Every Mac has one.
bool graphicsCardDraws() {
    return true;
}

} // namespace vexa::platform
