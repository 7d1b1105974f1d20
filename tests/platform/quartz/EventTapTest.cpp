// SPDX-License-Identifier: MIT
#include "fakes/RecordingBackend.h"
#include "platform/quartz/Quartz.h"

#include <QTest>

#include <vector>

namespace {

struct Seen {
    std::vector<std::uint32_t> types;
    CFMachPortRef tap = nullptr;
    bool enableAgain = false;
    bool invalidate = false;
};

constexpr std::uint32_t lastType = kCGEventKeyUp; // ends the loop

CGEventRef see(CGEventTapProxy, CGEventType type, CGEventRef event, void *userInfo) {
    auto *seen = static_cast<Seen *>(userInfo);
    seen->types.push_back(type);
    if (type == kCGEventTapDisabledByTimeout && seen->enableAgain)
        CGEventTapEnable(seen->tap, true);
    if (seen->invalidate)
        CFMachPortInvalidate(seen->tap);
    if (type == lastType)
        CFRunLoopStop(CFRunLoopGetCurrent());
    return event;
}

CFMachPortRef createTap(CGEventMask mask, Seen *seen) {
    return CGEventTapCreate(kCGSessionEventTap, kCGHeadInsertEventTap, kCGEventTapOptionListenOnly, mask, see,
                            seen);
}

/// A tap in the loop of this thread.
class Tap {
public:
    Tap(Seen &seen, CGEventMask mask)
        : port(createTap(mask, &seen))
        , m_source(CFMachPortCreateRunLoopSource(kCFAllocatorDefault, port, 0)) {
        seen.tap = port;
        CFRunLoopAddSource(CFRunLoopGetCurrent(), m_source, kCFRunLoopCommonModes);
    }
    ~Tap() {
        CFMachPortInvalidate(port);
        CFRelease(port);
        CFRelease(m_source);
    }

    const CFMachPortRef port;

private:
    Q_DISABLE_COPY(Tap)

    const CFRunLoopSourceRef m_source;
};

constexpr CGEventMask keysOnly = CGEventMaskBit(kCGEventKeyDown) | CGEventMaskBit(kCGEventKeyUp);

} // namespace

class EventTapTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_backend = std::make_unique<vexa::RecordingBackend>(); }
    void cleanup() { m_backend.reset(); }

    void aRefusingBackendGivesNoTap() {
        m_backend->refuse();
        QVERIFY(!createTap(keysOnly, nullptr));
    }

    void withoutABackendThereIsNoTapAndPostsAreLost() {
        vexa::setInputBackend(nullptr);
        QVERIFY(!createTap(keysOnly, nullptr));
        QVERIFY(!vexa::inputBackend().post({}));
        QVERIFY(m_backend->posts().empty());
    }

    void onlyTypesInTheMaskAreSeen() {
        Seen seen;
        run(seen, keysOnly, [this] {
            m_backend->feedMove(1, 2);
            m_backend->feedKey(kVK_ANSI_G, true);
            m_backend->feedModifier(kVK_Shift);
            m_backend->feedButton(true);
            m_backend->feedKey(kVK_ANSI_G, false);
        });
        QCOMPARE(seen.types, (std::vector<std::uint32_t>{kCGEventKeyDown, kCGEventKeyUp}));
    }

    void aDisabledTapMissesWhatHappens() {
        Seen seen;
        const Tap tap(seen, keysOnly);
        CGEventTapEnable(tap.port, false);

        // A second tap, which is not disabled, ends the loop after the first one has had its turn.
        Seen other;
        run(other, keysOnly, [this] { m_backend->feedKey(kVK_ANSI_G, false); });
        QVERIFY(seen.types.empty());
        QCOMPARE(other.types, std::vector<std::uint32_t>{kCGEventKeyUp});
    }

    void aTapDisabledByTheSystemIsToldWhateverItsMask() {
        Seen seen;
        seen.enableAgain = true;
        run(seen, keysOnly, [this] {
            m_backend->feed({kCGEventTapDisabledByTimeout});
            m_backend->feedKey(kVK_ANSI_G, false);
        });
        QCOMPARE(seen.types, (std::vector<std::uint32_t>{kCGEventTapDisabledByTimeout, kCGEventKeyUp}));
    }

    void aTapNotEnabledAgainStaysDisabled() {
        Seen seen;
        Seen other;
        const Tap tap(seen, keysOnly);
        m_backend->feed(
            {kCGEventTapDisabledByUserInput}); // the second tap does not exist yet and does not see this
        run(other, keysOnly, [this] { m_backend->feedKey(kVK_ANSI_G, false); });
        QCOMPARE(seen.types, std::vector<std::uint32_t>{kCGEventTapDisabledByUserInput});
        QCOMPARE(other.types, std::vector<std::uint32_t>{kCGEventKeyUp});
    }

    void typesBeyondTheMaskAreNotSeen() {
        Seen seen;
        run(seen, ~CGEventMask{0}, [this] {
            m_backend->feed({64 + 10});
            m_backend->feedKey(kVK_ANSI_G, false);
        });
        QCOMPARE(seen.types, std::vector<std::uint32_t>{kCGEventKeyUp});
    }

    void aTapMayBeInvalidatedInItsCallback() {
        Seen seen;
        seen.invalidate = true;
        run(seen, keysOnly, [this] {
            m_backend->feedKey(kVK_ANSI_G, true);
            m_backend->feedKey(kVK_ANSI_G, true);
        });
        QCOMPARE(seen.types,
                 std::vector<std::uint32_t>{kCGEventKeyDown}); // and the loop, left without sources, returned
    }

    void invalidatingClosesTheSource() {
        const CFMachPortRef tap = createTap(keysOnly, nullptr);
        QCOMPARE(m_backend->openSources(), 1);
        CFMachPortInvalidate(tap);
        QCOMPARE(m_backend->openSources(), 0);
        QVERIFY(!CFMachPortCreateRunLoopSource(kCFAllocatorDefault, tap, 0));
        CFRelease(tap);
    }

    void aBurstLongerThanOneTurnIsSeenWhole() {
        Seen seen;
        run(seen, keysOnly | CGEventMaskBit(kCGEventMouseMoved), [this] {
            for (int i = 0; i < 1000; ++i)
                m_backend->feedMove(i, -i);
            m_backend->feedKey(kVK_ANSI_G, false);
        });
        QCOMPARE(seen.types.size(), std::size_t{1001});
    }

    void postedEventsReachTheBackend() {
        CGEventRef key = CGEventCreateKeyboardEvent(nullptr, kVK_Return, true);
        CGEventSetFlags(key, kCGEventFlagMaskCommand);
        CGEventPost(kCGHIDEventTap, key);
        QCOMPARE(CGEventGetFlags(key), CGEventFlags{kCGEventFlagMaskCommand});
        QCOMPARE(CGEventGetIntegerValueField(key, kCGKeyboardEventKeycode), std::int64_t{kVK_Return});
        CFRelease(key);

        CGEventRef mouse =
            CGEventCreateMouseEvent(nullptr, kCGEventMouseMoved, CGPointMake(1.5, -2), kCGMouseButtonRight);
        CGEventSetType(mouse, kCGEventLeftMouseUp);
        CGEventPost(kCGHIDEventTap, mouse);
        CFRelease(mouse);

        QCOMPARE(m_backend->posts(),
                 (std::vector<vexa::InputEvent>{{kCGEventKeyDown, kVK_Return, 1048576},
                                                {kCGEventLeftMouseUp, 0, 0, 1.5, -2, 1}}));
    }

    void everySourceOfEventsIsCounted() {
        CGEventSourceRef first = CGEventSourceCreate(kCGEventSourceStatePrivate);
        CGEventSourceRef second = CGEventSourceCreate(kCGEventSourceStatePrivate);
        QVERIFY(first && second);
        CFRelease(first);
        CFRelease(second);
        QVERIFY(CGEventSourceCreate(kCGEventSourceStatePrivate)); // still there, although none was kept
    }

private:
    void run(Seen &seen, CGEventMask mask, const std::function<void()> &feed) {
        const Tap tap(seen, mask);
        feed();
        CFRunLoopRun();
    }

    std::unique_ptr<vexa::RecordingBackend> m_backend;
};

QTEST_GUILESS_MAIN(EventTapTest)
#include "EventTapTest.moc"
