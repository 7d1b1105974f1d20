// SPDX-License-Identifier: MIT
#pragma once

#include "input/OwnedReference.h"
#include "platform/quartz/Quartz.h"

namespace vexa {

void freeMessagePort(CFMessagePortRef port);

} // namespace vexa

/// Owns a local or remote message port; freeing closes it. Any thread.
class CMessagePort : public vexa::OwnedReference<CFMessagePortRef, vexa::freeMessagePort> {
public:
    using OwnedReference::OwnedReference;
    using OwnedReference::operator=;

    /// CFMessagePortSendRequest() on the port owned.
    SInt32 SendRequest(SInt32 messageId, CFDataRef data, CFTimeInterval sendTimeout,
                       CFTimeInterval receiveTimeout, CFStringRef replyMode, CFDataRef *returnData) const;
};
