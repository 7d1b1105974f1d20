// SPDX-License-Identifier: MIT
#include "fakes/mac/QuartzObjects.h"

#include <map>

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFRunLoopMode kCFRunLoopDefaultMode = CFSTR("kCFRunLoopDefaultMode");
const CFRunLoopMode kCFRunLoopCommonModes = CFSTR("kCFRunLoopCommonModes");

// Strings are known by their address, as constant strings are; program and system see one for each text.
CFStringRef __CFStringMakeConstantString(const char *text) {
    static std::mutex lock;
    static std::map<std::string, __CFString> strings;
    const std::lock_guard guard(lock);
    return &strings.try_emplace(text, fakes::Object::Kind::Constant, text).first->second;
}

CFTypeRef CFRetain(CFTypeRef object) {
    const std::lock_guard guard(fakes::quartzLock());
    ++const_cast<fakes::Object *>(static_cast<const fakes::Object *>(object))->references;
    return object;
}

void CFRelease(CFTypeRef object) {
    const std::lock_guard guard(fakes::quartzLock());
    auto *const counted = const_cast<fakes::Object *>(static_cast<const fakes::Object *>(object));
    fakes::note("CFRelease", counted->name);
    if (--counted->references == 0)
        delete counted;
}

CFRunLoopRef CFRunLoopGetCurrent() {
    thread_local __CFRunLoop loop;
    return &loop;
}

void __CFRunLoop::queue(std::function<void()> task) {
    waiting.push_back(std::move(task));
    changed.notify_all();
}

void CFRunLoopRun() {
    __CFRunLoop &loop = *CFRunLoopGetCurrent();
    std::unique_lock guard(fakes::quartzLock());
    while (!loop.stopped && loop.sources > 0) {
        if (loop.waiting.empty()) {
            loop.changed.wait(guard);
            continue;
        }
        const auto task = std::move(loop.waiting.front());
        loop.waiting.pop_front();
        guard.unlock();
        task();
        guard.lock();
    }
    loop.stopped = false;
}

void CFRunLoopStop(CFRunLoopRef loop) {
    const std::lock_guard guard(fakes::quartzLock());
    fakes::note("CFRunLoopStop", loop == CFRunLoopGetCurrent() ? "current" : "other");
    loop->stopped = true;
    loop->changed.notify_all();
}

void CFRunLoopAddSource(CFRunLoopRef loop, CFRunLoopSourceRef source, CFRunLoopMode mode) {
    const std::lock_guard guard(fakes::quartzLock());
    fakes::note("CFRunLoopAddSource", source->name, mode->text);
    source->loop = loop;
    ++loop->sources;
    loop->changed.notify_all();
}

__CFRunLoopSource::~__CFRunLoopSource() {
    if (loop)
        --loop->sources;
    if (tap)
        tap->source = nullptr;
    if (port)
        port->source = nullptr;
}
