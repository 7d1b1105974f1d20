// SPDX-License-Identifier: MIT
#include "input/CMessagePort.h"

void vexa::freeMessagePort(CFMessagePortRef port) {
    CFMessagePortInvalidate(port);
    CFRelease(port);
}

SInt32 CMessagePort::SendRequest(SInt32 messageId, CFDataRef data, CFTimeInterval sendTimeout,
                                 CFTimeInterval receiveTimeout, CFStringRef replyMode,
                                 CFDataRef *returnData) const {
    return CFMessagePortSendRequest(Get(), messageId, data, sendTimeout, receiveTimeout, replyMode,
                                    returnData);
}
