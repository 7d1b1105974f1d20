// SPDX-License-Identifier: MIT
#include "platform/PointerSamples.h"

#include "platform/mac/ObjectiveC.h"

namespace vexa::platform {

bool setPointerSamplesMerged(bool merged) {
    const bool before = send<BOOL>(classNamed("NSEvent"), "isMouseCoalescingEnabled");
    send<void>(classNamed("NSEvent"), "setMouseCoalescingEnabled:", BOOL{merged});
    return before;
}

} // namespace vexa::platform
