// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/mac/Quartz.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

/// What the opaque types of the fake Core Foundation and Core Graphics hold. One lock guards them all.
namespace fakes {

/// Counted by CFRetain and CFRelease. The base comes first, so that a reference to anything is one to this.
struct Object {
    enum class Kind { Lasting, Event };

    explicit Object(Kind ofKind, std::string inJournal = {});
    virtual ~Object();
    Object(const Object &) = delete;
    Object &operator=(const Object &) = delete;

    const Kind kind;
    const std::string title; ///< in the journal; empty: it is not mentioned there
    int references = 1;
};

/// Notes what becomes of an object; the lock is held.
void note(const Object &object, const std::string &fate);

std::mutex &quartzLock();
Quartz &currentQuartz();

} // namespace fakes

struct __CFString {
    std::string text;
};

struct __CFRunLoop {
    std::condition_variable changed;
    std::deque<std::function<void()>> waiting;
    int sources = 0;
    bool stopped = false;

    void queue(std::function<void()> task); ///< the lock is held
};

struct __CFRunLoopSource : fakes::Object {
    explicit __CFRunLoopSource(const char *inJournal) : Object(Kind::Lasting, inJournal) {}
    CFRunLoopRef loop = nullptr;
    __CFMachPort *tap = nullptr;
    __CFMessagePort *port = nullptr;
    ~__CFRunLoopSource() override;
};

struct __CFMachPort : fakes::Object {
    __CFMachPort() : Object(Kind::Lasting, "tap") {}
    ~__CFMachPort() override;
    fakes::TapRequest request;
    CGEventTapCallBack callback = nullptr;
    void *userInfo = nullptr;
    bool enabled = true;
    bool valid = true;
    CFRunLoopSourceRef source = nullptr;
};

struct __CFMessagePort : fakes::Object {
    explicit __CFMessagePort(bool isLocal)
        : Object(Kind::Lasting, isLocal ? "local port" : "remote port"), local(isLocal) {}
    ~__CFMessagePort() override;
    std::string name;
    const bool local;
    bool valid = true;
    CFMessagePortCallBack callback = nullptr;
    void *info = nullptr;
    CFRunLoopSourceRef source = nullptr;
};

struct __CGEventSource {
    CGEventSourceStateID state;
};

struct __CGEvent : fakes::Object {
    __CGEvent() : Object(Kind::Event) {}
    fakes::InputEvent content;
};
