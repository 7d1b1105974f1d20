// SPDX-License-Identifier: MIT
#pragma once

#include "input/OwnedReference.h"
#include "platform/quartz/Quartz.h"

namespace vexa {

void freeEventTap(CFMachPortRef tap);

} // namespace vexa

/// Owns an event tap; freeing ends it. On the thread that created the tap.
class CEventTap : public vexa::OwnedReference<CFMachPortRef, vexa::freeEventTap> {
public:
    using OwnedReference::OwnedReference;
    using OwnedReference::operator=;
};
