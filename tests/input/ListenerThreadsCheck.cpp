// SPDX-License-Identifier: MIT
// Under the thread sanitizer: run loops, ports, taps and the listener's start and stop, between two threads
// and more. Without Qt's queued signals and its test library, whose locks the sanitizer does not know.
#include "fakes/RecordingBackend.h"
#include "input/CKeyboardListenerMac.h"

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

namespace {

void check(bool holds, const char *what) {
    if (holds)
        return;
    std::fprintf(stderr, "FAIL: %s\n", what);
    std::exit(EXIT_FAILURE);
}

struct Listener {
    Listener() {
        std::promise<CAnyKeyboardKiller> promise;
        auto future = promise.get_future();
        thread = std::thread(
            [](std::promise<CAnyKeyboardKiller> given) {
                CKeyboardListenerMac listener(std::move(given));
                listener.exec();
            },
            std::move(promise));
        killer = future.get();
    }
    ~Listener() {
        killer.stopListening();
        thread.join();
    }

    std::thread thread;
    CAnyKeyboardKiller killer;
};

void startAndStopWhileInputArrives() {
    vexa::RecordingBackend backend;
    std::atomic<bool> done{false};
    std::thread typist([&] {
        while (!done) {
            backend.feedKey(kVK_ANSI_G, true);
            backend.feedMove(1, 2);
            std::this_thread::yield();
        }
    });
    for (int i = 0; i < 300; ++i)
        Listener listener;
    done = true;
    typist.join();
    check(backend.openSources() == 0, "every listener closed its source");
    check(backend.openedSources() == 300, "every start opened one source");
}

void postFromOneThreadAndListenOnAnother() {
    vexa::RecordingBackend backend;
    const Listener listener;
    for (int i = 0; i < 200; ++i) {
        CKeyboardListenerMac::SetMouseClick(i, i);
        backend.feedMove(i, i);
    }
    check(backend.posts().size() == 600, "every post arrived");
}

std::atomic<int> answered{0};

CFDataRef answer(CFMessagePortRef, SInt32 id, CFDataRef, void *) {
    ++answered;
    if (id == 0)
        CFRunLoopStop(CFRunLoopGetCurrent());
    return nullptr;
}

void askFromManyThreads() {
    constexpr int askers = 4, requests = 500;
    answered = 0;
    CMessagePort local(
        CFMessagePortCreateLocal(kCFAllocatorDefault, CFSTR("many"), answer, nullptr, nullptr));
    const CRunLoopSource source(CFMessagePortCreateRunLoopSource(kCFAllocatorDefault, local.Get(), 0));
    std::thread loop([&source] {
        CFRunLoopAddSource(CFRunLoopGetCurrent(), source.Get(), kCFRunLoopCommonModes);
        CFRunLoopRun();
    });
    std::vector<std::thread> threads;
    for (int i = 0; i < askers; ++i)
        threads.emplace_back([] {
            const CMessagePort remote(CFMessagePortCreateRemote(kCFAllocatorDefault, CFSTR("many")));
            for (int request = 1; request <= requests; ++request)
                check(remote.SendRequest(request, nullptr, 60, 0, nullptr, nullptr) == kCFMessagePortSuccess,
                      "a living port takes every request");
        });
    for (std::thread &thread : threads)
        thread.join();
    const CMessagePort remote(CFMessagePortCreateRemote(kCFAllocatorDefault, CFSTR("many")));
    remote.SendRequest(0, nullptr, 60, 0, nullptr, nullptr);
    loop.join();
    check(answered == askers * requests + 1, "every request was answered once");
}

/// Names taken and left while others look for them: a port must never be found half dead.
void takeAndLeaveNames() {
    std::atomic<bool> done{false};
    std::thread seeker([&done] {
        while (!done) {
            const CMessagePort remote(CFMessagePortCreateRemote(kCFAllocatorDefault, CFSTR("brief")));
            if (remote)
                remote.SendRequest(1, nullptr, 60, 0, nullptr, nullptr);
        }
    });
    for (int i = 0; i < 2000; ++i) {
        CMessagePort local(
            CFMessagePortCreateLocal(kCFAllocatorDefault, CFSTR("brief"), answer, nullptr, nullptr));
        if (local && i % 2)
            CFRelease(local.Release()); // without closing it first
    }
    done = true;
    seeker.join();
}

void stopFromOutside() {
    for (int i = 0; i < 300; ++i) {
        std::promise<CFRunLoopRef> running;
        auto loop = running.get_future();
        std::thread thread([&running] {
            CMessagePort local(CFMessagePortCreateLocal(
                kCFAllocatorDefault, CFSTR("outside"),
                [](CFMessagePortRef, SInt32, CFDataRef, void *info) -> CFDataRef {
                    static_cast<std::promise<CFRunLoopRef> *>(info)->set_value(
                        CFRunLoopRef(const_cast<void *>(CFRetain(CFRunLoopGetCurrent()))));
                    return nullptr;
                },
                std::array<CFMessagePortContext, 1>{{{0, &running, nullptr, nullptr, nullptr}}}.data(),
                nullptr));
            const CRunLoopSource source(
                CFMessagePortCreateRunLoopSource(kCFAllocatorDefault, local.Get(), 0));
            CFRunLoopAddSource(CFRunLoopGetCurrent(), source.Get(), kCFRunLoopCommonModes);
            const CMessagePort self(CFMessagePortCreateRemote(kCFAllocatorDefault, CFSTR("outside")));
            self.SendRequest(1, nullptr, 60, 0, nullptr, nullptr);
            CFRunLoopRun();
        });
        CFRunLoopRef reference = loop.get();
        CFRunLoopStop(reference);
        thread.join();
        CFRelease(reference); // the loop outlived its thread
    }
}

} // namespace

int main() {
    startAndStopWhileInputArrives();
    postFromOneThreadAndListenOnAnother();
    askFromManyThreads();
    takeAndLeaveNames();
    stopFromOutside();
    std::puts("ok");
}
