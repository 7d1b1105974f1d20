// SPDX-License-Identifier: MIT
#include "platform/PointerSamples.h"

namespace vexa::platform {

// The X server queues every move; what merges them on the way to a window is the toolkit alone.
bool setPointerSamplesMerged(bool /*merged*/) {
    return false;
}

} // namespace vexa::platform
