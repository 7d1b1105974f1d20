// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/mac/Quartz.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <sstream>
#include <string>
#include <utility>

/// What the opaque types of the fake Core Foundation and Core Graphics hold. One lock guards them all.
namespace fakes {

/// Counted by CFRetain and CFRelease. The base comes first, so that a reference to anything is one to this.
struct Object {
    enum class Kind { Lasting, Event, Constant };

    Object(Kind ofKind, std::string ofName);
    virtual ~Object();
    Object(const Object &) = delete;
    Object &operator=(const Object &) = delete;

    const Kind kind;
    const std::string name; ///< as the calls name it
    int references = 1;
};

std::mutex &quartzLock();
Quartz &currentQuartz();

void keepCall(std::string call);

/// Keeps a call of the program's. The lock is held.
template<typename... Words> void note(const Words &...words) {
    std::ostringstream call;
    const char *space = "";
    ((call << std::exchange(space, " ") << words), ...);
    keepCall(call.str());
}

/// How a call names an argument that may be left out.
inline const char *given(const void *argument) {
    return argument ? "given" : "null";
}

} // namespace fakes

struct __CFString : fakes::Object {
    __CFString(Kind ofKind, std::string ofText) : Object(ofKind, "text"), text(std::move(ofText)) {}
    const std::string text; ///< UTF-8
};

struct __CFRunLoop {
    std::condition_variable changed;
    std::deque<std::function<void()>> waiting;
    int sources = 0;
    bool stopped = false;

    void queue(std::function<void()> task); ///< the lock is held
};

struct __CFRunLoopSource : fakes::Object {
    explicit __CFRunLoopSource(std::string ofName) : Object(Kind::Lasting, std::move(ofName)) {}
    CFRunLoopRef loop = nullptr;
    __CFMachPort *tap = nullptr;
    __CFMessagePort *port = nullptr;
    ~__CFRunLoopSource() override;
};

struct __CFMachPort : fakes::Object {
    __CFMachPort() : Object(Kind::Lasting, "tap") {}
    ~__CFMachPort() override;
    CGEventMask mask = 0;
    CGEventTapCallBack callback = nullptr;
    void *userInfo = nullptr;
    bool enabled = true;
    bool valid = true;
    CFRunLoopSourceRef source = nullptr;
};

struct __CFMessagePort : fakes::Object {
    __CFMessagePort(std::string ofAddress, bool isLocal)
        : Object(Kind::Lasting, isLocal ? "local port" : "remote port")
        , address(std::move(ofAddress))
        , local(isLocal) {}
    ~__CFMessagePort() override;
    const std::string address;
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
    __CGEvent() : Object(Kind::Event, "event") {}
    fakes::InputEvent content;
};
