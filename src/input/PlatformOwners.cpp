// SPDX-License-Identifier: MIT
#include "input/CEventTap.h"
#include "input/CMessagePort.h"
#include "input/CRunLoopSource.h"

namespace vexa {

void freeEventTap(CFMachPortRef tap) {
    CFMachPortInvalidate(tap);
    CFRelease(tap);
}

void freeMessagePort(CFMessagePortRef port) {
    CFMessagePortInvalidate(port);
    CFRelease(port);
}

void freeRunLoopSource(CFRunLoopSourceRef source) {
    CFRelease(source);
}

} // namespace vexa

SInt32 CMessagePort::SendRequest(SInt32 messageId, CFDataRef data, CFTimeInterval sendTimeout,
                                 CFTimeInterval receiveTimeout, CFStringRef replyMode,
                                 CFDataRef *returnData) const {
    return CFMessagePortSendRequest(Get(), messageId, data, sendTimeout, receiveTimeout, replyMode,
                                    returnData);
}
