// SPDX-License-Identifier: MIT
#include "platform/quartz/Quartz.h"
#include "support/Sanitized.h"

#include <QTest>

#include <memory>
#include <sys/resource.h>
#include <thread>
#include <vector>

namespace {

/// What a port was asked; stops the loop at request 0.
struct Asked {
    std::vector<SInt32> ids;
    CFMessagePortRef port = nullptr;
};

CFDataRef answer(CFMessagePortRef port, SInt32 id, CFDataRef, void *info) {
    auto *asked = static_cast<Asked *>(info);
    asked->ids.push_back(id);
    asked->port = port;
    if (id == 0)
        CFRunLoopStop(CFRunLoopGetCurrent());
    return nullptr;
}

/// Invalidates a port and gives it back.
struct Drop {
    void operator()(CFMessagePortRef port) const {
        CFMessagePortInvalidate(port);
        CFRelease(port);
    }
};
using Port = std::unique_ptr<std::remove_pointer_t<CFMessagePortRef>, Drop>;

Port createLocal(const char *name, Asked *asked = nullptr) {
    CFMessagePortContext context{0, asked, nullptr, nullptr, nullptr};
    return Port(CFMessagePortCreateLocal(kCFAllocatorDefault, CFSTR(name), answer, &context, nullptr));
}

Port createRemote(const char *name) {
    return Port(CFMessagePortCreateRemote(kCFAllocatorDefault, CFSTR(name)));
}

/// A port, what it was asked, and who asks.
struct Line {
    Asked asked;
    Port local = createLocal("line", &asked);
    Port remote = createRemote("line");

    SInt32 ask(SInt32 id, CFStringRef replyMode = nullptr) const {
        return CFMessagePortSendRequest(remote.get(), id, nullptr, 60, 0, replyMode, nullptr);
    }
};

CFRunLoopSourceRef sourceOf(const Port &port) {
    return CFMessagePortCreateRunLoopSource(kCFAllocatorDefault, port.get(), 0);
}

void addToLoop(const Port &port) {
    CFRunLoopSourceRef source = sourceOf(port);
    CFRunLoopAddSource(CFRunLoopGetCurrent(), source, kCFRunLoopCommonModes);
    CFRelease(source);
}

/// Runs the calling thread's loop with the port as its only source.
void serve(const Port &port) {
    addToLoop(port);
    CFRunLoopRun();
}

} // namespace

class MessagePortTest : public QObject {
    Q_OBJECT

private slots:
    void aNameCanBeTakenOnce() {
        const Port first = createLocal("taken");
        QVERIFY(first);
        QVERIFY(!createLocal("taken"));
        QVERIFY(createLocal("not taken"));
    }

    void aNameIsFreeAgainAfterInvalidation() {
        const Port first = createLocal("again");
        CFMessagePortInvalidate(first.get());
        const Port second = createLocal("again");
        QVERIFY(second);
        CFMessagePortInvalidate(first.get()); // twice does not take the name from its new owner
        QVERIFY(createRemote("again"));
    }

    void aNameIsFreeAgainAfterTheLastRelease() {
        CFRelease(createLocal("released").release());
        QVERIFY(!createRemote("released"));
        QVERIFY(createLocal("released"));
    }

    void aPortThatCannotBeMadeTakesNoName() {
        if (vexa::test::addressSanitized)
            QSKIP(
                "Without descriptors the sanitizer cannot look at an object, and takes it for a broken one.");
        rlimit usual{};
        QCOMPARE(getrlimit(RLIMIT_NOFILE, &usual), 0);
        const rlimit none{0, usual.rlim_max};
        QCOMPARE(setrlimit(RLIMIT_NOFILE, &none), 0);
        const Port failed = createLocal("port");
        QCOMPARE(setrlimit(RLIMIT_NOFILE, &usual), 0);
        QVERIFY(!failed);
        QVERIFY(!createRemote("port"));
        QVERIFY(createLocal("port"));
    }

    void anUnknownNameHasNoRemoteEnd() { QVERIFY(!createRemote("nobody")); }

    void requestsAreAnsweredInOrderOnTheLoopOfThePort() {
        Line line;
        std::thread sender([&line] {
            for (const SInt32 id : {7, 8, 9, 0})
                QCOMPARE(line.ask(id), SInt32{kCFMessagePortSuccess});
        });
        serve(line.local);
        sender.join();
        QCOMPARE(line.asked.ids, (std::vector<SInt32>{7, 8, 9, 0}));
        QCOMPARE(line.asked.port, line.local.get());
    }

    void aRequestSentBeforeTheLoopRunsIsKept() {
        Line line;
        QCOMPARE(line.ask(0), SInt32{kCFMessagePortSuccess});
        serve(line.local);
        QCOMPARE(line.asked.ids, std::vector<SInt32>{0});
    }

    void aRequestToAGonePortFails() {
        Line line;
        line.local.reset();
        QCOMPARE(line.ask(0), SInt32{kCFMessagePortIsInvalid});
    }

    void aRequestThroughAnInvalidatedRemoteEndFails() {
        Line line;
        CFMessagePortInvalidate(line.remote.get());
        QCOMPARE(line.ask(0), SInt32{kCFMessagePortIsInvalid});
    }

    void aRequestForAReplyIsDeliveredAndTimesOut() {
        Line line;
        QCOMPARE(line.ask(0, kCFRunLoopCommonModes), SInt32{kCFMessagePortReceiveTimeout});
        serve(line.local);
        QCOMPARE(line.asked.ids, std::vector<SInt32>{0});
    }

    void requestsLeftInAnInvalidatedPortAreDropped() {
        Line line;
        line.ask(5);
        addToLoop(line.local);
        line.local.reset();
        CFRunLoopRun();
        QVERIFY(line.asked.ids.empty());
    }

    void invalidatingThePortEndsALoopThatHasNothingElse() {
        Port local = createLocal("last");
        CFRunLoopSourceRef source = sourceOf(local);
        std::thread loop([source] {
            CFRunLoopAddSource(CFRunLoopGetCurrent(), source, kCFRunLoopCommonModes);
            CFRunLoopRun();
        });
        local.reset();
        loop.join();
        CFRelease(source);
    }

    void aRemoteOrInvalidPortHasNoSource() {
        Line line;
        QVERIFY(!sourceOf(line.remote));
        CFMessagePortInvalidate(line.local.get());
        QVERIFY(!sourceOf(line.local));
    }
};

QTEST_GUILESS_MAIN(MessagePortTest)
#include "MessagePortTest.moc"
