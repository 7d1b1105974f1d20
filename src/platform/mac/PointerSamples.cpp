// SPDX-License-Identifier: MIT
#include "platform/PointerSamples.h"

#include "platform/mac/ObjectiveC.h"

namespace vexa::platform {

void setPointerSamplesMerged(bool merged) {
    send<void>(classNamed("NSEvent"), "setMouseCoalescingEnabled:", BOOL{merged});
}

} // namespace vexa::platform
