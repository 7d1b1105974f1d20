// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// The part of Core Foundation that the program uses, where the system has none. Names, types, values and
/// ownership are the system's: what a function with Create in its name returns belongs to the caller, who
/// gives it back with CFRelease(); a null is never released. Any function may be called on any thread.

using Boolean = unsigned char;
using SInt32 = std::int32_t;
using CFIndex = long;
using CFTimeInterval = double;
using CFTypeRef = const void *;

using CFAllocatorRef = const struct CFAllocator *;
using CFDataRef = const struct CFData *;
using CFStringRef = const struct CFString *;
using CFRunLoopRef = struct CFRunLoop *;
using CFRunLoopSourceRef = struct CFRunLoopSource *;
using CFMachPortRef = struct CFMachPort *;
using CFMessagePortRef = struct CFMessagePort *;
using CFRunLoopMode = CFStringRef;

constexpr CFAllocatorRef kCFAllocatorDefault = nullptr;

CFTypeRef CFRetain(CFTypeRef object);
void CFRelease(CFTypeRef object);

/// The constant string of a literal: the same object every time, never freed.
CFStringRef CFSTR(const char *literal);

// Run loops. Each thread has one, made when it is first asked for; the only mode is the common one.

extern const CFRunLoopMode kCFRunLoopCommonModes;

/// The calling thread's run loop; not owned by the caller.
CFRunLoopRef CFRunLoopGetCurrent();

/// Lets the loop serve the source, and keeps it until the source is invalidated or the loop's thread ends.
void CFRunLoopAddSource(CFRunLoopRef loop, CFRunLoopSourceRef source, CFRunLoopMode mode);

/// Serves the calling thread's sources until it is stopped or has none left.
void CFRunLoopRun();

/// Ends the innermost CFRunLoopRun() of that loop. A loop that does not run is not affected: a caller that
/// may come before it runs sends a message to a port instead, which keeps it until the loop runs.
void CFRunLoopStop(CFRunLoopRef loop);

// Message ports. Their names are known inside this process.

using CFMessagePortCallBack = CFDataRef (*)(CFMessagePortRef local, SInt32 messageId, CFDataRef data,
                                            void *info);

struct CFMessagePortContext {
    CFIndex version;
    void *info;
    const void *(*retain)(const void *info);
    void (*release)(const void *info);
    CFStringRef (*copyDescription)(const void *info);
};

enum : SInt32 {
    kCFMessagePortSuccess = 0,
    kCFMessagePortSendTimeout = -1,
    kCFMessagePortReceiveTimeout = -2,
    kCFMessagePortIsInvalid = -3,
};

/// Null when the name is taken, or there is nothing left to make a port of. The callback runs on the loop
/// that serves the port's source; of the context only info is used.
CFMessagePortRef CFMessagePortCreateLocal(CFAllocatorRef allocator, CFStringRef name,
                                          CFMessagePortCallBack callback, CFMessagePortContext *context,
                                          Boolean *shouldFreeInfo);

/// Null when there is no local port of that name.
CFMessagePortRef CFMessagePortCreateRemote(CFAllocatorRef allocator, CFStringRef name);

/// Queues the request for the port's loop, running or not, and returns without waiting. There are no replies:
/// a request for one is delivered, and then reported as kCFMessagePortReceiveTimeout.
SInt32 CFMessagePortSendRequest(CFMessagePortRef remote, SInt32 messageId, CFDataRef data,
                                CFTimeInterval sendTimeout, CFTimeInterval receiveTimeout,
                                CFStringRef replyMode, CFDataRef *reply);

/// Frees the name of a local port and drops what is queued; disconnects a remote one.
void CFMessagePortInvalidate(CFMessagePortRef port);

/// Null for a remote or an invalidated port.
CFRunLoopSourceRef CFMessagePortCreateRunLoopSource(CFAllocatorRef allocator, CFMessagePortRef local,
                                                    CFIndex order);

// Mach ports: event taps are the only ones here.

/// Ends the tap. On the thread that created it.
void CFMachPortInvalidate(CFMachPortRef port);

/// Null for an invalidated port.
CFRunLoopSourceRef CFMachPortCreateRunLoopSource(CFAllocatorRef allocator, CFMachPortRef port, CFIndex order);
