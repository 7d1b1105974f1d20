// SPDX-License-Identifier: MIT
#include "fakes/mac/Quartz.h"
#include "input/CKeyboardHandler.h"
#include "input/CKeyboardListenerMac.h"
#include "platform/quartz/VirtualKeys.h"
#include "support/Table.h"
#include "support/Thrown.h"

#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <future>
#include <optional>

namespace {

fakes::InputEvent key(CGEventType type, std::int64_t code) {
    return {type, code};
}

fakes::InputEvent pointer(CGEventType type, double x, double y) {
    return {type, 0, 0, {x, y}};
}

using Messages = QList<QVariantList>;
using Reasons = vexa::test::Table<CGEventType>;
using Steps = vexa::test::Table<bool fakes::Quartz::*, QByteArray>;
using Post = void (*)();
using Posts = vexa::test::Table<Post, QStringList, int>;

// A key comes from no source at all, and stays the system's; pressed is 1.
QStringList postingOfKey(int code, int pressed, const QString &flags) {
    return {QStringLiteral("CGEventCreateKeyboardEvent null %1 %2").arg(code).arg(pressed), flags,
            QStringLiteral("CGEventPost 0")};
}

// One mouse event of a click: each has a source of its own, which is not released, and is released itself.
QStringList postingOf(int type, const QString &point) {
    return {QStringLiteral("CGEventSourceCreate -1"),
            QStringLiteral("CGEventCreateMouseEvent given %1 %2 0").arg(type).arg(point),
            QStringLiteral("CGEventSetType %1").arg(type), QStringLiteral("CGEventPost 0"),
            QStringLiteral("CFRelease event")};
}

} // namespace

Q_DECLARE_METATYPE(CGEventType)
Q_DECLARE_METATYPE(bool fakes::Quartz::*)
Q_DECLARE_METATYPE(Post)

/// The program's own listener, built against Apple's names, on a fake of what Apple has behind them.
class ListenerTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_quartz.emplace(); }
    void cleanup() {
        QCOMPARE(m_quartz->objectsAlive(), 0);
        QVERIFY(m_quartz->swallowsNothing());
        m_quartz.reset();
    }

    void asksForAListeningTapOfTheSession() {
        const CKeyboardHandler handler;
        const auto taps = m_quartz->taps();
        QCOMPARE(taps.size(), std::size_t{1});
        QCOMPARE(int(taps[0].location), 1);
        QCOMPARE(int(taps[0].placement), 0);
        QCOMPARE(int(taps[0].options), 1);
        QCOMPARE(quint64(taps[0].mask), quint64(7206));
    }

    // Up to the stop request the one thread waits for the other, and then that one for this.
    void setsItsLoopUpAndTakesItDownInOrder() {
        { const CKeyboardHandler handler; }
        const QStringList expected{
            QStringLiteral("CGEventTapCreate 1 0 1 7206"),
            QStringLiteral("CFMessagePortCreateLocal KeyboardKillerPort null"),
            QStringLiteral("CFMessagePortCreateRunLoopSource local port 0"),
            QStringLiteral("CFMachPortCreateRunLoopSource tap 0"),
            QStringLiteral("CFRunLoopAddSource source of the port kCFRunLoopCommonModes"),
            QStringLiteral("CFRunLoopAddSource source of the tap kCFRunLoopCommonModes"),
            QStringLiteral("CFMessagePortCreateRemote KeyboardKillerPort"),
            QStringLiteral("CFMessagePortSendRequest 0 null 60 0 null null"),
            QStringLiteral("CFRunLoopStop current"),
            QStringLiteral("CFMessagePortInvalidate local port"),
            QStringLiteral("CFRelease local port"),
            QStringLiteral("CFMachPortInvalidate tap"),
            QStringLiteral("CFRelease tap"),
            QStringLiteral("CFRelease source of the port"),
            QStringLiteral("CFRelease source of the tap"),
            QStringLiteral("CFMessagePortInvalidate remote port"),
            QStringLiteral("CFRelease remote port"),
        };
        QCOMPARE(calls(), expected);
    }

    void looksAtTheFlagsOfAModifierAlone() {
        const CKeyboardHandler handler;
        const int before = calls().size();
        QVERIFY(m_quartz->send(key(kCGEventKeyDown, kVK_ANSI_G)));
        QVERIFY(m_quartz->send(pointer(kCGEventMouseMoved, 1, 1)));
        QCOMPARE(calls().size(), before);
        QVERIFY(m_quartz->send(key(kCGEventFlagsChanged, kVK_Shift)));
        QCOMPARE(calls().mid(before), QStringList(QStringLiteral("CGEventGetFlags")));
    }

    void tellsKeysAndPointerInTheirOrder() {
        const CKeyboardHandler handler;
        QSignalSpy keys(&handler, &CKeyboardHandler::MysignalKeyboardMessage);
        QSignalSpy moves(&handler, &CKeyboardHandler::MysignalMouseMessage);
        QVERIFY(m_quartz->send(key(kCGEventFlagsChanged, kVK_Control)));
        QVERIFY(m_quartz->send(key(kCGEventKeyDown, kVK_ANSI_G)));
        QVERIFY(m_quartz->send(key(kCGEventKeyUp, kVK_ANSI_G)));
        QVERIFY(m_quartz->send(key(kCGEventFlagsChanged, kVK_Control)));
        QVERIFY(m_quartz->send(pointer(kCGEventMouseMoved, 100.9, -0.5)));
        QTRY_COMPARE(moves.count(), 1);
        QCOMPARE(Messages(keys),
                 (Messages{{kVK_Control, 1}, {kVK_ANSI_G, 1}, {kVK_ANSI_G, 0}, {kVK_Control, 0}}));
        QCOMPARE(Messages(moves), (Messages{{5, 100, 0}}));
    }

    void countsTheChangesOfTheLeftModifiersAlone() {
        const CKeyboardHandler handler;
        QSignalSpy keys(&handler, &CKeyboardHandler::MysignalKeyboardMessage);
        for (const int code : {kVK_Shift, kVK_Option, kVK_Control, kVK_RightShift, kVK_Command, kVK_Option,
                               kVK_Shift, kVK_Control})
            QVERIFY(m_quartz->send(key(kCGEventFlagsChanged, code)));
        QTRY_COMPARE(keys.count(), 8);
        const Messages expected{{kVK_Shift, 1},   {kVK_Option, 1}, {kVK_Control, 1}, {kVK_RightShift, 0},
                                {kVK_Command, 0}, {kVK_Option, 0}, {kVK_Shift, 0},   {kVK_Control, 0}};
        QCOMPARE(Messages(keys), expected);
    }

    void saysNothingOfClicks() {
        const CKeyboardHandler handler;
        QSignalSpy moves(&handler, &CKeyboardHandler::MysignalMouseMessage);
        QVERIFY(m_quartz->send(pointer(kCGEventLeftMouseDown, 1, 1)));
        QVERIFY(m_quartz->send(pointer(kCGEventLeftMouseUp, 1, 1)));
        QVERIFY(!m_quartz->send(pointer(kCGEventLeftMouseDragged, 2, 2)));
        QVERIFY(m_quartz->send(pointer(kCGEventMouseMoved, 3, 3)));
        QTRY_COMPARE(moves.count(), 1);
        QCOMPARE(Messages(moves), (Messages{{5, 3, 3}}));
    }

    void switchesOnAgainATapThatWasSwitchedOff_data() {
        Reasons::begin({{"too slow", kCGEventTapDisabledByTimeout},
                        {"by user input, as around sleep", kCGEventTapDisabledByUserInput}});
    }

    // The modifiers were let go while nobody listened; then the pen is pressed.
    void switchesOnAgainATapThatWasSwitchedOff() {
        const auto [reason] = Reasons::row();
        const CKeyboardHandler handler;
        QSignalSpy keys(&handler, &CKeyboardHandler::MysignalKeyboardMessage);
        for (const int code : {kVK_Shift, kVK_Option, kVK_Control})
            QVERIFY(m_quartz->send(key(kCGEventFlagsChanged, code)));
        m_quartz->disableTaps(reason);
        QCOMPARE(m_quartz->enabledTaps(), 1);
        for (const int code : {kVK_Control, kVK_Option, kVK_Shift})
            QVERIFY(m_quartz->send(key(kCGEventFlagsChanged, code)));
        QTRY_COMPARE(keys.count(), 6);
        QCOMPARE(Messages(keys).mid(3), (Messages{{kVK_Control, 1}, {kVK_Option, 1}, {kVK_Shift, 1}}));
    }

    // What a tap may be handed without Input Monitoring: the pointer alone.
    void startsWithATapThatHearsNoKeys() {
        m_quartz->withheld = CGEventMaskBit(kCGEventKeyDown) | CGEventMaskBit(kCGEventKeyUp) |
                             CGEventMaskBit(kCGEventFlagsChanged);
        const CKeyboardHandler handler;
        QVERIFY(!m_quartz->send(key(kCGEventKeyDown, kVK_ANSI_G)));
        QVERIFY(m_quartz->send(pointer(kCGEventMouseMoved, 1, 1)));
    }

    // The name server's rule, by which a program never has two ports of one name.
    void aSecondPortOfTheNameIsTheFirstOnceMore() {
        const CFMessagePortRef first = CFMessagePortCreateLocal(
            nullptr, CFSTR("a port"), CKeyboardListenerMac::MessagePortCallback, nullptr, nullptr);
        const CFMessagePortRef second =
            CFMessagePortCreateLocal(nullptr, CFSTR("a port"), nullptr, nullptr, nullptr);
        QCOMPARE(second, first);
        CFRelease(second);
        CFMessagePortInvalidate(first);
        CFRelease(first);
    }

    void doesNotStartWhenTheTapIsRefused() {
        m_quartz->permitsTaps = false;
        QVERIFY_EXCEPTION_THROWN(CKeyboardHandler(), std::future_error);
    }

    void namesTheStepThatFailed_data() {
        Steps::begin(
            {{"tap", &fakes::Quartz::permitsTaps, "Failed to create eventTap"},
             {"local port", &fakes::Quartz::permitsLocalPorts, "Failed to create messagePort"},
             {"remote port", &fakes::Quartz::permitsRemotePorts, "Failed to create killerMessagePort"}});
    }
    void namesTheStepThatFailed() {
        const auto [step, text] = Steps::row();
        *m_quartz.*step = false;
        std::promise<CAnyKeyboardKiller> promise;
        auto killer = promise.get_future();
        QCOMPARE(vexa::test::textThrownBy<std::runtime_error>(
                     [&] { const CKeyboardListenerMac listener(std::move(promise)); }),
                 text);
        QVERIFY_EXCEPTION_THROWN(killer.get(), std::future_error);
    }

    void startsAndStopsAgainAndAgain() {
        for (int time = 0; time < 20; ++time)
            const CKeyboardHandler handler;
        QCOMPARE(m_quartz->taps().size(), std::size_t{20});
    }

    // 0x800000 is the function key, which belongs to page up; the others are the four that make a chord.
    void postsNoModifierThatIsHeldMeanwhile() {
        m_quartz->held = 0x800000 | 0x1E0000;
        CKeyboardListenerMac::EnterPPT = false;
        CKeyboardListenerMac::SetPPTFullScreen();
        CKeyboardListenerMac::SetPPTFullScreen();
        CKeyboardListenerMac::SetPlayOrPause();
        CKeyboardListenerMac::SetPageUp();
        std::vector<quint64> flags;
        for (const auto &event : m_quartz->posted())
            flags.push_back(event.flags);
        const std::vector<quint64> expected{0x100000, 0x800000, 0x800000, 0x800000, 0x800000};
        QVERIFY(flags == expected);
    }

    // With how many events then stay the system's.
    void postsStepByStep_data() {
        const QString at = QStringLiteral("30 -4");
        const QString command = QStringLiteral("CGEventSetFlags 1048576");
        const QString held = QStringLiteral("CGEventGetFlags");
        using Listener = CKeyboardListenerMac;
        Posts::begin({
            {"a slide show begun and ended",
             [] {
                 Listener::SetPPTFullScreen();
                 Listener::SetPPTFullScreen();
             },
             postingOfKey(36, 1, command) + postingOfKey(53, 1, held), 2},
            {"play or pause", Listener::SetPlayOrPause, postingOfKey(49, 1, held) + postingOfKey(49, 0, held),
             2},
            {"page up", Listener::SetPageUp, postingOfKey(116, 1, held), 1},
            {"a move", [] { Listener::SetMouseMove(30, -4); }, postingOf(5, at), 0},
            {"a press", [] { Listener::SetMouseDown(30, -4); }, postingOf(5, at) + postingOf(1, at), 0},
            {"a click", [] { Listener::SetMouseClick(30, -4); },
             postingOf(5, at) + postingOf(1, at) + postingOf(2, at), 0},
            {"the camera's pane", Listener::SetpTosysCamera, {}, 0},
        });
    }
    void postsStepByStep() {
        const auto [post, expected, staying] = Posts::row();
        CKeyboardListenerMac::EnterPPT = false;
        post();
        QCOMPARE(calls(), expected);
        QCOMPARE(m_quartz->eventsAlive(), staying);
        QVERIFY(!CKeyboardListenerMac::EnterPPT);
    }

    void postsNothingWhenThereIsNoEventToPost() {
        m_quartz->permitsEvents = false;
        CKeyboardListenerMac::EnterPPT = false;
        CKeyboardListenerMac::SetPPTFullScreen();
        CKeyboardListenerMac::SetMouseClick(1, 1);
        QVERIFY(m_quartz->posted().empty());
        QVERIFY(CKeyboardListenerMac::EnterPPT);
    }

private:
    QStringList calls() const {
        QStringList all;
        for (const std::string &call : m_quartz->calls())
            all.append(QString::fromStdString(call));
        return all;
    }

    std::optional<fakes::Quartz> m_quartz;
};

QTEST_GUILESS_MAIN(ListenerTest)
#include "ListenerTest.moc"
