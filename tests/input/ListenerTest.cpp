// SPDX-License-Identifier: MIT
#include "StatelessPromise.h"
#include "fakes/RecordingBackend.h"
#include "input/CKeyboardListenerMac.h"
#include "support/Table.h"
#include "support/Thrown.h"

#include <QSignalSpy>
#include <QTest>

using namespace vexa::test;

namespace {

/// An event as a tap would hand it out, given back at the end of the scope.
class Event {
public:
    Event(std::uint32_t type, CGKeyCode key)
        : m_type(type), m_event(CGEventCreateKeyboardEvent(nullptr, key, true)) {
        CGEventSetType(m_event, static_cast<CGEventType>(type));
    }
    Event(std::uint32_t type, CGPoint point)
        : m_type(type)
        , m_event(
              CGEventCreateMouseEvent(nullptr, static_cast<CGEventType>(type), point, kCGMouseButtonLeft)) {}
    ~Event() { CFRelease(m_event); }

    CGEventType type() const { return static_cast<CGEventType>(m_type); }
    CGEventRef get() const { return m_event; }

private:
    Q_DISABLE_COPY(Event)

    std::uint32_t m_type;
    CGEventRef m_event;
};

struct Key {
    int code;
    int state;
    bool operator==(const Key &other) const { return code == other.code && state == other.state; }
};

/// An event, and the state that it is told with.
struct Change {
    std::uint32_t type;
    CGKeyCode key;
    int state;
};
using Changes = Table<QVector<Change>>;
using Positions = Table<double, double, QPoint>;

} // namespace

Q_DECLARE_METATYPE(Change)

class ListenerTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_backend = std::make_unique<vexa::RecordingBackend>();
        std::promise<CAnyKeyboardKiller> promise;
        m_killer = promise.get_future();
        m_listener = std::make_unique<CKeyboardListenerMac>(std::move(promise));
        m_keys = std::make_unique<QSignalSpy>(m_listener.get(), &CKeyboardListenerMac::signalKeyboardMessage);
        m_moves = std::make_unique<QSignalSpy>(m_listener.get(), &CKeyboardListenerMac::signalMouseMessage);
    }

    void cleanup() {
        destroyListener();
        m_backend.reset();
    }

    void theMaskIs7206() { QCOMPARE(CKeyboardListenerMac::CreateMask(), CGEventMask{7206}); }

    void keysGiveTheirCodeAndState_data() {
        constexpr std::uint32_t down = kCGEventKeyDown, up = kCGEventKeyUp, flags = kCGEventFlagsChanged;
        Changes::begin({
            {"a press and a release", {{down, kVK_ANSI_G, 1}, {up, kVK_ANSI_G, 0}}},
            {"a press each time that it repeats",
             {{down, kVK_ANSI_A, 1}, {down, kVK_ANSI_A, 1}, {down, kVK_ANSI_A, 1}, {up, kVK_ANSI_A, 0}}},
            {"the left shift alone", {{flags, kVK_Shift, 1}, {flags, kVK_Shift, 0}}},
            {"the three left modifiers, each by itself",
             {{flags, kVK_Control, 1},
              {flags, kVK_Shift, 1},
              {flags, kVK_Option, 1},
              {flags, kVK_Shift, 0},
              {flags, kVK_Control, 0},
              {flags, kVK_Option, 0}}},
        });
        for (const CGKeyCode key :
             std::initializer_list<CGKeyCode>{kVK_RightCommand, kVK_Command, kVK_CapsLock, kVK_RightShift,
                                              kVK_RightOption, kVK_RightControl, kVK_Function})
            QTest::addRow("modifier %d, which toggles nothing", int(key))
                << QVector<Change>{{flags, key, 0}, {flags, key, 0}, {flags, kVK_Shift, 1}};
    }
    void keysGiveTheirCodeAndState() {
        const auto [changes] = Changes::row();
        QVector<Key> expected;
        for (const auto &[type, key, state] : changes) {
            send({type, key});
            expected.append({key, state});
        }
        QCOMPARE(keysOf(*m_keys), expected);
        QVERIFY(m_keys->first().first().value<CKeyboardMessage>().text.isEmpty());
        QVERIFY(m_moves->isEmpty());
    }

    void aReleaseSeenFirstIsCountedAsAChange() {
        Event release(kCGEventFlagsChanged, kVK_Control);
        CGEventSetFlags(release.get(), 0); // the flags say released, and are not asked
        send(release);
        QCOMPARE(keysOf(*m_keys), (QVector<Key>{{kVK_Control, 1}}));
    }

    void clicksDragsAndOtherTypesGiveNoMessage() {
        for (const uint type : {0u, 1u, 2u, 3u, 4u, 6u, 7u, 8u, 9u, 13u, 14u, 22u, 64u, 0xFFFFFFFFu}) {
            const Event event(type, CGPointMake(3, 4));
            const bool returned = send(event) == event.get();
            QVERIFY2(returned && m_keys->isEmpty() && m_moves->isEmpty(), qPrintable(QString::number(type)));
        }
    }

    void positionsAreTruncatedTowardZero_data() {
        Positions::begin({{"inside", 100.9, 0.99, {100, 0}},
                          {"just left of the screen", -0.5, -0.99, {0, 0}},
                          {"far left", -1280.7, 1079.0, {-1280, 1079}}});
    }
    void positionsAreTruncatedTowardZero() {
        const auto [x, y, expected] = Positions::row();
        send({kCGEventMouseMoved, CGPointMake(x, y)});
        QCOMPARE(m_moves->size(), 1);
        const auto message = m_moves->first().first().value<CKeyboardMessage>();
        QCOMPARE(message.mouseEvent, 5);
        QCOMPARE(QPoint(message.mouseX, message.mouseY), expected);
        QVERIFY(m_keys->isEmpty());
    }

    void everyEventIsReturnedUnchanged() {
        for (const std::uint32_t type : {kCGEventLeftMouseDown, kCGEventLeftMouseUp, kCGEventMouseMoved,
                                         kCGEventKeyDown, kCGEventKeyUp, kCGEventFlagsChanged}) {
            const Event event(type, CGKeyCode(kVK_Shift));
            QCOMPARE(CKeyboardListenerMac::StaticCallbackFunction(nullptr, event.type(), event.get(),
                                                                  m_listener.get()),
                     event.get());
            QCOMPARE(CGEventGetIntegerValueField(event.get(), kCGKeyboardEventKeycode),
                     std::int64_t{kVK_Shift});
        }
    }

    void aDisabledTapIsEnabledAgain() {
        for (const std::uint32_t reason : {kCGEventTapDisabledByTimeout, kCGEventTapDisabledByUserInput}) {
            m_backend->feed({reason});
            m_backend->feedKey(kVK_ANSI_G, true);
            pump();
            QCOMPARE(keysOf(*m_keys), (QVector<Key>{{kVK_ANSI_G, 1}}));
            m_keys->clear();
        }
    }

    void aStopRequestSentBeforeTheLoopRunsEndsIt() {
        m_killer.get().stopListening();
        QCOMPARE(m_listener->exec(), 0);
    }

    void thePortIsTakenWhileTheListenerLives() {
        QCOMPARE(CKeyboardListenerMac::PORT_NAME, CFSTR("KeyboardKillerPort"));
        QVERIFY(port());
        destroyListener();
        QVERIFY(!port());
        QCOMPARE(m_backend->openSources(), 0);
    }

    void aSecondListenerIsRefusedItsPort() {
        std::promise<CAnyKeyboardKiller> promise;
        auto killer = promise.get_future();
        QCOMPARE(textThrownBy<std::runtime_error>(
                     [&] { const CKeyboardListenerMac listener(std::move(promise)); }),
                 QByteArray("Failed to create messagePort"));
        QVERIFY_EXCEPTION_THROWN(killer.get(), std::future_error);
        QCOMPARE(m_backend->openSources(), 1); // the refused one has let go of its tap
    }

    void aRefusedTapThrows() {
        m_backend->refuse();
        QCOMPARE(textThrownBy<std::runtime_error>(
                     [] { const CKeyboardListenerMac listener{std::promise<CAnyKeyboardKiller>()}; }),
                 QByteArray("Failed to create eventTap"));
    }

    void aPromiseWithoutStateThrowsAndReleasesEverything() {
        destroyListener();
        QVERIFY(codeThrownBy<std::future_error>([] {
                    const CKeyboardListenerMac listener(statelessPromise());
                }) == std::future_errc::no_state);
        QCOMPARE(m_backend->openSources(), 0);
        QVERIFY(!port());
    }

    void theUnusedSignalIsNeverEmitted() {
        QSignalSpy unused(m_listener.get(), &CKeyboardListenerMac::MysignalKeyboardMessage);
        send({kCGEventKeyDown, kVK_ANSI_G});
        send({kCGEventFlagsChanged, kVK_Shift});
        send({kCGEventMouseMoved, CGPointMake(1, 1)});
        QVERIFY(unused.isEmpty());
    }

private:
    void destroyListener() {
        m_keys.reset();
        m_moves.reset();
        m_listener.reset();
    }

    static CMessagePort port() {
        return CMessagePort(CFMessagePortCreateRemote(kCFAllocatorDefault, CFSTR("KeyboardKillerPort")));
    }

    QVector<Key> keysOf(const QSignalSpy &spy) const {
        QVector<Key> keys;
        for (const auto &arguments : spy) {
            const auto message = arguments.first().value<CKeyboardMessage>();
            keys.append({message.keyCode, message.keyState});
        }
        return keys;
    }

    CGEventRef send(const Event &event) { return m_listener->CallbackFunction(event.type(), event.get()); }

    /// Runs the loop over everything fed so far: sources have their turn in the order they came, and this
    /// one, which stops the loop, comes after the listener's.
    void pump() {
        const CMessagePort local(CFMessagePortCreateLocal(
            kCFAllocatorDefault, CFSTR("pump"), CKeyboardListenerMac::MessagePortCallback, nullptr, nullptr));
        const CRunLoopSource source(CFMessagePortCreateRunLoopSource(kCFAllocatorDefault, local.Get(), 0));
        CFRunLoopAddSource(CFRunLoopGetCurrent(), source.Get(), kCFRunLoopCommonModes);
        const CMessagePort remote(CFMessagePortCreateRemote(kCFAllocatorDefault, CFSTR("pump")));
        remote.SendRequest(0, nullptr, 60, 0, nullptr, nullptr);
        QCOMPARE(m_listener->exec(), 0);
    }

    std::unique_ptr<vexa::RecordingBackend> m_backend;
    std::unique_ptr<CKeyboardListenerMac> m_listener;
    std::future<CAnyKeyboardKiller> m_killer;
    std::unique_ptr<QSignalSpy> m_keys, m_moves;
};

QTEST_GUILESS_MAIN(ListenerTest)
#include "ListenerTest.moc"
