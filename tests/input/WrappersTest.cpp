// SPDX-License-Identifier: MIT
#include "fakes/RecordingBackend.h"
#include "input/CEventTap.h"
#include "input/CMessagePort.h"
#include "input/CRunLoopSource.h"
#include "support/Table.h"

#include <QTest>

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
using Use = void (*)(Owner &);
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

/// What a use of a wrapper frees, what the wrapper shows then, and what was freed when it has gone.
using Uses = vexa::test::Table<Freed, int *, Freed, Use>;

} // namespace

Q_DECLARE_METATYPE(Use)
Q_DECLARE_METATYPE(Freed)
Q_DECLARE_METATYPE(int *)

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

    /// By a wrapper that has the first one. Assigned null, it keeps showing what it has freed.
    void eachReferenceIsFreedOnce_data() {
        Uses::begin();
        const auto row = [](const char *name, const Freed &byIt, int *shown, const Freed &inAll, Use use) {
            QTest::newRow(name) << byIt << shown << inAll << use;
        };
        int *const first = reference(1);
        int *const second = reference(2);
        row("not used", {}, first, {1}, [](Owner &) {});
        row("freed", {1}, nullptr, {1}, [](Owner &owner) { owner.Free(); });
        row("freed twice", {1}, nullptr, {1}, [](Owner &owner) {
            owner.Free();
            owner.Free();
        });
        row("set", {1}, second, {1, 2}, [](Owner &owner) { owner.Set(reference(2)); });
        row("released", {}, nullptr, {}, [](Owner &owner) { QCOMPARE(owner.Release(), reference(1)); });
        row("moved from", {1}, nullptr, {1}, [](Owner &owner) {
            const Owner target(std::move(owner));
            QCOMPARE(target.Get(), reference(1));
            QVERIFY(freed.empty());
        });
        row("assigned from", {2, 1}, nullptr, {2, 1}, [](Owner &owner) {
            Owner target(reference(2));
            target = std::move(owner);
            QCOMPARE(target.Get(), reference(1));
            QCOMPARE(freed, Freed{2});
        });
        row("assigned another", {1}, second, {1, 2}, [](Owner &owner) { owner = Owner(reference(2)); });
        row("assigned itself", {}, first, {1}, [](Owner &owner) {
            Owner &same = owner;
            owner = std::move(same);
        });
        row("assigned null", {1}, first, {1}, [](Owner &owner) { owner = nullptr; });
        row("assigned null, then another", {1}, second, {1, 2}, [](Owner &owner) {
            owner = nullptr;
            owner = Owner(reference(2));
        });
        row("assigned null, then set", {1}, second, {1, 2}, [](Owner &owner) {
            owner = nullptr;
            owner.Set(reference(2));
        });
    }
    void eachReferenceIsFreedOnce() {
        const auto [freedByIt, shown, freedInAll, use] = Uses::row();
        {
            Owner owner(reference(1));
            use(owner);
            QCOMPARE(freed, freedByIt);
            QCOMPARE(owner.Get(), shown);
            QCOMPARE(bool(owner), shown != nullptr);
        }
        QCOMPARE(freed, freedInAll);
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
