// SPDX-License-Identifier: MIT
#include "fakes/RecordingBackend.h"
#include "input/CEventTap.h"
#include "input/CMessagePort.h"
#include "input/CRunLoopSource.h"

#include <QtTest>

#include <type_traits>

namespace {

// References that nothing stands behind, and a record of which were freed.
std::vector<int> freed;

int *reference(int number) {
    static int objects[10];
    return &objects[number];
}

void freeCounted(int *object) {
    freed.push_back(static_cast<int>(object - reference(0)));
}

using Owner = vexa::OwnedReference<int *, freeCounted>;
using Freed = std::vector<int>;

CFDataRef noAnswer(CFMessagePortRef, SInt32, CFDataRef, void *) {
    return nullptr;
}

CGEventRef noCallback(CGEventTapProxy, CGEventType, CGEventRef event, void *) {
    return event;
}

CFMessagePortRef createPort() {
    return CFMessagePortCreateLocal(kCFAllocatorDefault, CFSTR("wrapped"), noAnswer, nullptr, nullptr);
}

CFMachPortRef createTap() {
    return CGEventTapCreate(kCGSessionEventTap, kCGHeadInsertEventTap, kCGEventTapOptionListenOnly, 7206,
                            noCallback, nullptr);
}

template<typename Wrapper> constexpr bool isMoveOnly() {
    return !std::is_copy_constructible_v<Wrapper> && !std::is_copy_assignable_v<Wrapper> &&
           std::is_nothrow_move_constructible_v<Wrapper> && std::is_nothrow_move_assignable_v<Wrapper>;
}

/// Nothing gets out of a freeing: what would be thrown there ends the process.
template<typename Wrapper> constexpr bool freesWithoutThrowing() {
    using Reference = decltype(std::declval<Wrapper>().Get());
    return std::is_nothrow_destructible_v<Wrapper> &&noexcept(std::declval<Wrapper &>().Free()) &&noexcept(
        std::declval<Wrapper &>().Set(Reference())) &&noexcept(std::declval<Wrapper &>() = nullptr);
}

} // namespace

class WrappersTest : public QObject {
    Q_OBJECT

private slots:
    void init() { freed.clear(); }

    void anEmptyWrapperFreesNothing() {
        {
            Owner owner;
            QVERIFY(!owner);
            QVERIFY(!owner.Get());
            owner.Free();
            owner.Set(nullptr);
            QVERIFY(!owner.Release());
            owner = nullptr;
        }
        QVERIFY(freed.empty());
    }

    void destructionFrees() {
        {
            Owner owner(reference(1));
            QVERIFY(owner);
            QCOMPARE(owner.Get(), reference(1));
            QVERIFY(freed.empty());
        }
        QCOMPARE(freed, Freed{1});
    }

    void freeFreesOnce() {
        {
            Owner owner(reference(1));
            owner.Free();
            QCOMPARE(freed, Freed{1});
            owner.Free();
        }
        QCOMPARE(freed, Freed{1});
    }

    void setFreesTheOldReference() {
        {
            Owner owner;
            owner.Set(reference(1));
            QVERIFY(freed.empty());
            owner.Set(reference(2));
            QCOMPARE(freed, Freed{1});
            QCOMPARE(owner.Get(), reference(2));
        }
        QCOMPARE(freed, (Freed{1, 2}));
    }

    void moveConstructionTransfers() {
        {
            Owner source(reference(1));
            const Owner target(std::move(source));
            QVERIFY(!source);
            QCOMPARE(target.Get(), reference(1));
            QVERIFY(freed.empty());
        }
        QCOMPARE(freed, Freed{1});
    }

    void moveAssignmentFreesTheOwnAndTakesTheOther() {
        {
            Owner source(reference(1));
            Owner target(reference(2));
            target = std::move(source);
            QCOMPARE(freed, Freed{2});
            QVERIFY(!source);
            QCOMPARE(target.Get(), reference(1));
        }
        QCOMPARE(freed, (Freed{2, 1}));
    }

    void moveAssignmentToItselfKeepsTheReference() {
        {
            Owner owner(reference(1));
            Owner &same = owner;
            owner = std::move(same);
            QVERIFY(freed.empty());
            QCOMPARE(owner.Get(), reference(1));
        }
        QCOMPARE(freed, Freed{1});
    }

    void releaseGivesUpOwnership() {
        {
            Owner owner(reference(1));
            QCOMPARE(owner.Release(), reference(1));
            QVERIFY(!owner);
        }
        QVERIFY(freed.empty());
    }

    void assignmentOfNullFreesAndKeepsShowingTheReference() {
        Owner owner(reference(1));
        owner = nullptr;
        QCOMPARE(freed, Freed{1});
        QCOMPARE(owner.Get(), reference(1));
        QVERIFY(owner);
    }

    void aWrapperAssignedNullCanBeReassigned() {
        {
            Owner byMove(reference(1));
            byMove = nullptr;
            byMove = Owner(reference(2));
            QCOMPARE(byMove.Get(), reference(2));
            Owner bySet(reference(3));
            bySet = nullptr;
            bySet.Set(reference(4));
            QCOMPARE(bySet.Get(), reference(4));
            QCOMPARE(freed, (Freed{1, 3}));
        }
        QCOMPARE(freed, (Freed{1, 3, 4, 2}));
    }

    void theThreeWrappersCanOnlyBeMoved() {
        QVERIFY(isMoveOnly<CEventTap>());
        QVERIFY(isMoveOnly<CMessagePort>());
        QVERIFY(isMoveOnly<CRunLoopSource>());
    }

    void theThreeWrappersFreeWithoutThrowing() {
        QVERIFY(freesWithoutThrowing<CEventTap>());
        QVERIFY(freesWithoutThrowing<CMessagePort>());
        QVERIFY(freesWithoutThrowing<CRunLoopSource>());
    }

    void freeingATapEndsIt() {
        vexa::RecordingBackend backend;
        CEventTap tap(createTap());
        QVERIFY(tap);
        CFRetain(tap.Get()); // so that only the ending, not the last release, can close the source
        CFMachPortRef kept = tap.Get();
        QCOMPARE(backend.openSources(), 1);
        tap.Free();
        QCOMPARE(backend.openSources(), 0);
        CFRelease(kept);
    }

    void freeingAPortClosesIt() {
        CMessagePort port(createPort());
        CFMessagePortRef kept = port.Get();
        CFRetain(kept);
        port.Free();
        QVERIFY(!CFMessagePortCreateRemote(kCFAllocatorDefault, CFSTR("wrapped")));
        CFRelease(kept);
    }

    void freeingASourceLeavesItsPortAlone() {
        const CMessagePort port(createPort());
        CRunLoopSource source(CFMessagePortCreateRunLoopSource(kCFAllocatorDefault, port.Get(), 0));
        QVERIFY(source);
        source.Free();
        const CMessagePort remote(CFMessagePortCreateRemote(kCFAllocatorDefault, CFSTR("wrapped")));
        QVERIFY(remote);
    }

    void aRequestPassesThrough() {
        static int answers;
        static SInt32 lastId;
        answers = 0;
        CMessagePort local(CFMessagePortCreateLocal(
            kCFAllocatorDefault, CFSTR("wrapped"),
            [](CFMessagePortRef, SInt32 id, CFDataRef, void *) -> CFDataRef {
                ++answers;
                lastId = id;
                CFRunLoopStop(CFRunLoopGetCurrent());
                return nullptr;
            },
            nullptr, nullptr));
        const CRunLoopSource source(CFMessagePortCreateRunLoopSource(kCFAllocatorDefault, local.Get(), 0));
        CFRunLoopAddSource(CFRunLoopGetCurrent(), source.Get(), kCFRunLoopCommonModes);
        CMessagePort remote(CFMessagePortCreateRemote(kCFAllocatorDefault, CFSTR("wrapped")));

        QCOMPARE(remote.SendRequest(42, nullptr, 60, 0, nullptr, nullptr), SInt32{kCFMessagePortSuccess});
        CFRunLoopRun();
        QCOMPARE(answers, 1);
        QCOMPARE(lastId, SInt32{42});
        local.Free();
        QCOMPARE(remote.SendRequest(42, nullptr, 60, 0, nullptr, nullptr), SInt32{kCFMessagePortIsInvalid});
    }
};

QTEST_GUILESS_MAIN(WrappersTest)
#include "WrappersTest.moc"
