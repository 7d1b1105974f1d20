// SPDX-License-Identifier: MIT
#include "platform/quartz/Quartz.h"
#include "support/Sanitized.h"

#include <QtTest>

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

CFMessagePortRef createLocal(const char *name, Asked *asked = nullptr) {
    CFMessagePortContext context{0, asked, nullptr, nullptr, nullptr};
    return CFMessagePortCreateLocal(kCFAllocatorDefault, CFSTR(name), answer, &context, nullptr);
}

CFMessagePortRef createRemote(const char *name) {
    return CFMessagePortCreateRemote(kCFAllocatorDefault, CFSTR(name));
}

SInt32 ask(CFMessagePortRef remote, SInt32 id, CFStringRef replyMode = nullptr) {
    return CFMessagePortSendRequest(remote, id, nullptr, 60, 0, replyMode, nullptr);
}

void drop(CFMessagePortRef port) {
    CFMessagePortInvalidate(port);
    CFRelease(port);
}

/// Runs the calling thread's loop with the port as its only source.
void serve(CFMessagePortRef port) {
    CFRunLoopSourceRef source = CFMessagePortCreateRunLoopSource(kCFAllocatorDefault, port, 0);
    CFRunLoopAddSource(CFRunLoopGetCurrent(), source, kCFRunLoopCommonModes);
    CFRelease(source);
    CFRunLoopRun();
}

} // namespace

class MessagePortTest : public QObject {
    Q_OBJECT

private slots:
    void aNameCanBeTakenOnce();
    void aNameIsFreeAgainAfterInvalidation();
    void aNameIsFreeAgainAfterTheLastRelease();
    void aPortThatCannotBeMadeTakesNoName();
    void anUnknownNameHasNoRemoteEnd();
    void requestsAreAnsweredInOrderOnTheLoopOfThePort();
    void aRequestSentBeforeTheLoopRunsIsKept();
    void aRequestToAGonePortFails();
    void aRequestThroughAnInvalidatedRemoteEndFails();
    void aRequestForAReplyIsDeliveredAndTimesOut();
    void requestsLeftInAnInvalidatedPortAreDropped();
    void invalidatingThePortEndsALoopThatHasNothingElse();
    void aRemoteOrInvalidPortHasNoSource();
};

void MessagePortTest::aNameCanBeTakenOnce() {
    CFMessagePortRef first = createLocal("taken");
    QVERIFY(first);
    QVERIFY(!createLocal("taken"));
    CFMessagePortRef other = createLocal("not taken");
    QVERIFY(other);
    drop(first);
    drop(other);
}

void MessagePortTest::aNameIsFreeAgainAfterInvalidation() {
    CFMessagePortRef first = createLocal("again");
    CFMessagePortInvalidate(first);
    CFMessagePortRef second = createLocal("again");
    QVERIFY(second);
    CFMessagePortInvalidate(first); // twice does not take the name from its new owner
    CFMessagePortRef remote = createRemote("again");
    QVERIFY(remote);
    CFRelease(first);
    drop(remote);
    drop(second);
}

void MessagePortTest::aNameIsFreeAgainAfterTheLastRelease() {
    CFRelease(createLocal("released"));
    QVERIFY(!createRemote("released"));
    CFMessagePortRef second = createLocal("released");
    QVERIFY(second);
    drop(second);
}

void MessagePortTest::aPortThatCannotBeMadeTakesNoName() {
    if (vexa::test::addressSanitized)
        QSKIP("Without descriptors the sanitizer cannot look at an object, and takes it for a broken one.");
    rlimit usual{};
    QCOMPARE(getrlimit(RLIMIT_NOFILE, &usual), 0);
    const rlimit none{0, usual.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_NOFILE, &none), 0);
    CFMessagePortRef failed = createLocal("port");
    QCOMPARE(setrlimit(RLIMIT_NOFILE, &usual), 0);
    QVERIFY(!failed);
    QVERIFY(!createRemote("port"));
    CFMessagePortRef local = createLocal("port");
    QVERIFY(local);
    drop(local);
}

void MessagePortTest::anUnknownNameHasNoRemoteEnd() {
    QVERIFY(!createRemote("nobody"));
}

void MessagePortTest::requestsAreAnsweredInOrderOnTheLoopOfThePort() {
    Asked asked;
    CFMessagePortRef local = createLocal("order", &asked);
    CFMessagePortRef remote = createRemote("order");
    std::thread sender([remote] {
        for (const SInt32 id : {7, 8, 9, 0})
            QCOMPARE(ask(remote, id), SInt32{kCFMessagePortSuccess});
    });
    serve(local);
    sender.join();
    QCOMPARE(asked.ids, (std::vector<SInt32>{7, 8, 9, 0}));
    QCOMPARE(asked.port, local);
    drop(remote);
    drop(local);
}

void MessagePortTest::aRequestSentBeforeTheLoopRunsIsKept() {
    Asked asked;
    CFMessagePortRef local = createLocal("early", &asked);
    CFMessagePortRef remote = createRemote("early");
    QCOMPARE(ask(remote, 0), SInt32{kCFMessagePortSuccess});
    serve(local);
    QCOMPARE(asked.ids, std::vector<SInt32>{0});
    drop(remote);
    drop(local);
}

void MessagePortTest::aRequestToAGonePortFails() {
    CFMessagePortRef local = createLocal("gone");
    CFMessagePortRef remote = createRemote("gone");
    drop(local);
    QCOMPARE(ask(remote, 0), SInt32{kCFMessagePortIsInvalid});
    drop(remote);
}

void MessagePortTest::aRequestThroughAnInvalidatedRemoteEndFails() {
    CFMessagePortRef local = createLocal("detached");
    CFMessagePortRef remote = createRemote("detached");
    CFMessagePortInvalidate(remote);
    QCOMPARE(ask(remote, 0), SInt32{kCFMessagePortIsInvalid});
    CFRelease(remote);
    drop(local);
}

void MessagePortTest::aRequestForAReplyIsDeliveredAndTimesOut() {
    Asked asked;
    CFMessagePortRef local = createLocal("reply", &asked);
    CFMessagePortRef remote = createRemote("reply");
    QCOMPARE(ask(remote, 0, kCFRunLoopCommonModes), SInt32{kCFMessagePortReceiveTimeout});
    serve(local);
    QCOMPARE(asked.ids, std::vector<SInt32>{0});
    drop(remote);
    drop(local);
}

void MessagePortTest::requestsLeftInAnInvalidatedPortAreDropped() {
    Asked asked;
    CFMessagePortRef local = createLocal("left", &asked);
    CFMessagePortRef remote = createRemote("left");
    ask(remote, 5);
    CFRunLoopSourceRef source = CFMessagePortCreateRunLoopSource(kCFAllocatorDefault, local, 0);
    CFRunLoopAddSource(CFRunLoopGetCurrent(), source, kCFRunLoopCommonModes);
    CFRelease(source);
    drop(local);
    CFRunLoopRun();
    QVERIFY(asked.ids.empty());
    drop(remote);
}

void MessagePortTest::invalidatingThePortEndsALoopThatHasNothingElse() {
    CFMessagePortRef local = createLocal("last");
    CFRunLoopSourceRef source = CFMessagePortCreateRunLoopSource(kCFAllocatorDefault, local, 0);
    std::thread loop([source] {
        CFRunLoopAddSource(CFRunLoopGetCurrent(), source, kCFRunLoopCommonModes);
        CFRunLoopRun();
    });
    drop(local);
    loop.join();
    CFRelease(source);
}

void MessagePortTest::aRemoteOrInvalidPortHasNoSource() {
    CFMessagePortRef local = createLocal("sourceless");
    CFMessagePortRef remote = createRemote("sourceless");
    QVERIFY(!CFMessagePortCreateRunLoopSource(kCFAllocatorDefault, remote, 0));
    CFMessagePortInvalidate(local);
    QVERIFY(!CFMessagePortCreateRunLoopSource(kCFAllocatorDefault, local, 0));
    CFRelease(local);
    drop(remote);
}

QTEST_GUILESS_MAIN(MessagePortTest)
#include "MessagePortTest.moc"
