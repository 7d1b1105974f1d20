// SPDX-License-Identifier: MIT
// The part of Core Foundation that this program uses, declared after Apple's documentation. For checking and
// testing without Apple's development kit; a real build never sees this file.
#pragma once

#include <cstdint>

typedef unsigned char Boolean;
typedef std::int32_t SInt32;
typedef long CFIndex;
typedef double CFTimeInterval;
typedef unsigned long CFOptionFlags;
typedef std::uint16_t UniChar;
typedef const void *CFTypeRef;
typedef const struct __CFAllocator *CFAllocatorRef;
typedef const struct __CFString *CFStringRef;
typedef const struct __CFData *CFDataRef;
typedef const struct __CFURL *CFURLRef;
typedef CFStringRef CFRunLoopMode;
typedef struct __CFRunLoop *CFRunLoopRef;
typedef struct __CFRunLoopSource *CFRunLoopSourceRef;
typedef struct __CFMachPort *CFMachPortRef;
typedef struct __CFMessagePort *CFMessagePortRef;

struct CFMessagePortContext {
    CFIndex version;
    void *info;
    const void *(*retain)(const void *info);
    void (*release)(const void *info);
    CFStringRef (*copyDescription)(const void *info);
};
enum : CFOptionFlags { kCFUserNotificationStopAlertLevel = 0 };
typedef CFDataRef (*CFMessagePortCallBack)(CFMessagePortRef local, SInt32 messageId, CFDataRef data,
                                           void *info);

extern "C" {
extern const CFAllocatorRef kCFAllocatorDefault;
extern const CFRunLoopMode kCFRunLoopDefaultMode;
extern const CFRunLoopMode kCFRunLoopCommonModes;

CFStringRef __CFStringMakeConstantString(const char *text);
#define CFSTR(text) (__CFStringMakeConstantString("" text ""))

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef allocator, const UniChar *characters, CFIndex count);

CFTypeRef CFRetain(CFTypeRef object);
void CFRelease(CFTypeRef object);

CFRunLoopRef CFRunLoopGetCurrent(void);
void CFRunLoopRun(void);
void CFRunLoopStop(CFRunLoopRef loop);
void CFRunLoopAddSource(CFRunLoopRef loop, CFRunLoopSourceRef source, CFRunLoopMode mode);

void CFMachPortInvalidate(CFMachPortRef port);
CFRunLoopSourceRef CFMachPortCreateRunLoopSource(CFAllocatorRef allocator, CFMachPortRef port, CFIndex order);

CFMessagePortRef CFMessagePortCreateLocal(CFAllocatorRef allocator, CFStringRef name,
                                          CFMessagePortCallBack callout, CFMessagePortContext *context,
                                          Boolean *shouldFreeInfo);
CFMessagePortRef CFMessagePortCreateRemote(CFAllocatorRef allocator, CFStringRef name);
CFRunLoopSourceRef CFMessagePortCreateRunLoopSource(CFAllocatorRef allocator, CFMessagePortRef local,
                                                    CFIndex order);
void CFMessagePortInvalidate(CFMessagePortRef port);
SInt32 CFMessagePortSendRequest(CFMessagePortRef remote, SInt32 messageId, CFDataRef data,
                                CFTimeInterval sendTimeout, CFTimeInterval receiveTimeout,
                                CFStringRef replyMode, CFDataRef *returnData);

SInt32 CFUserNotificationDisplayAlert(CFTimeInterval timeout, CFOptionFlags flags, CFURLRef iconURL,
                                      CFURLRef soundURL, CFURLRef localizationURL, CFStringRef alertHeader,
                                      CFStringRef alertMessage, CFStringRef defaultButtonTitle,
                                      CFStringRef alternateButtonTitle, CFStringRef otherButtonTitle,
                                      CFOptionFlags *responseFlags);
}
