// SPDX-License-Identifier: MIT
#pragma once

#include "input/OwnedReference.h"
#include "platform/quartz/Quartz.h"

namespace vexa {

void freeRunLoopSource(CFRunLoopSourceRef source);

} // namespace vexa

/// Owns a run-loop source. Freeing neither invalidates it nor takes it out of a run loop. Any thread.
class CRunLoopSource : public vexa::OwnedReference<CFRunLoopSourceRef, vexa::freeRunLoopSource> {
public:
    using OwnedReference::OwnedReference;
    using OwnedReference::operator=;
};
