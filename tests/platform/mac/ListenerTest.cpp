// SPDX-License-Identifier: MIT
#include "fakes/mac/Quartz.h"
#include "input/CKeyboardHandler.h"
#include "input/CKeyboardListenerMac.h"
#include "platform/quartz/VirtualKeys.h"

#include <QSignalSpy>
#include <QtTest>

#include <functional>
#include <future>
#include <optional>

namespace {

fakes::InputEvent key(CGEventType type, std::int64_t code) {
    fakes::InputEvent event;
    event.type = type;
    event.keyCode = code;
    return event;
}

fakes::InputEvent pointer(CGEventType type, double x, double y) {
    fakes::InputEvent event;
    event.type = type;
    event.point = {x, y};
    return event;
}

using Post = std::function<void()>;
using Messages = QList<QList<QVariant>>;

// One mouse event of a click: each has a source of its own, which is not released, and is released itself.
QStringList postingOf(int type, const QString &point) {
    return {QStringLiteral("CGEventSourceCreate -1"),
            QStringLiteral("CGEventCreateMouseEvent given %1 %2 0").arg(type).arg(point),
            QStringLiteral("CGEventSetType %1").arg(type), QStringLiteral("CGEventPost 0"),
            QStringLiteral("CFRelease event")};
}

} // namespace

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
        QTest::addColumn<quint32>("reason");
        QTest::newRow("too slow") << quint32(kCGEventTapDisabledByTimeout);
        QTest::newRow("by user input, as around sleep") << quint32(kCGEventTapDisabledByUserInput);
    }

    // The modifiers were let go while nobody listened; then the pen is pressed.
    void switchesOnAgainATapThatWasSwitchedOff() {
        QFETCH(quint32, reason);
        const CKeyboardHandler handler;
        QSignalSpy keys(&handler, &CKeyboardHandler::MysignalKeyboardMessage);
        for (const int code : {kVK_Shift, kVK_Option, kVK_Control})
            QVERIFY(m_quartz->send(key(kCGEventFlagsChanged, code)));
        m_quartz->disableTaps(CGEventType(reason));
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
        QTest::addColumn<int>("step");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("tap") << 0 << QByteArray("Failed to create eventTap");
        QTest::newRow("local port") << 1 << QByteArray("Failed to create messagePort");
        QTest::newRow("remote port") << 2 << QByteArray("Failed to create killerMessagePort");
    }

    void namesTheStepThatFailed() {
        QFETCH(int, step);
        QFETCH(QByteArray, text);
        constexpr bool fakes::Quartz::*steps[] = {&fakes::Quartz::permitsTaps,
                                                  &fakes::Quartz::permitsLocalPorts,
                                                  &fakes::Quartz::permitsRemotePorts};
        *m_quartz.*steps[step] = false;
        std::promise<CAnyKeyboardKiller> promise;
        auto killer = promise.get_future();
        QByteArray thrown;
        try {
            CKeyboardListenerMac listener(std::move(promise));
        } catch (const std::runtime_error &error) {
            thrown = error.what();
        }
        QCOMPARE(thrown, text);
        QVERIFY_EXCEPTION_THROWN(killer.get(), std::future_error);
    }

    void startsAndStopsAgainAndAgain() {
        for (int time = 0; time < 20; ++time)
            const CKeyboardHandler handler;
        QCOMPARE(m_quartz->taps().size(), std::size_t{20});
    }

    void postsTheSlideShowsKeys() {
        CKeyboardListenerMac::EnterPPT = false;
        CKeyboardListenerMac::SetPPTFullScreen();
        CKeyboardListenerMac::SetPPTFullScreen();
        const auto posted = m_quartz->posted();
        QCOMPARE(posted.size(), std::size_t{2});
        QCOMPARE(posted[0].keyCode, std::int64_t{kVK_Return});
        QCOMPARE(quint64(posted[0].flags), quint64(0x100000));
        QCOMPARE(posted[1].keyCode, std::int64_t{kVK_Escape});
        QCOMPARE(quint64(posted[1].flags), quint64(0));
        for (const auto &event : posted) {
            QCOMPARE(int(event.type), 10);
            QCOMPARE(int(event.location), 0);
            QVERIFY(!event.privateSource); // posted from no source at all
        }
        QVERIFY(!CKeyboardListenerMac::EnterPPT);
        QCOMPARE(m_quartz->eventsAlive(), 2); // posted keys stay the system's
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

    void postsAClickWhereThePointerThenStays() {
        CKeyboardListenerMac::SetMouseClick(30, -4);
        const auto posted = m_quartz->posted();
        const int types[] = {5, 1, 2};
        QCOMPARE(posted.size(), std::size(types));
        for (std::size_t i = 0; i < posted.size(); ++i) {
            QCOMPARE(int(posted[i].type), types[i]);
            QCOMPARE(posted[i].point.x, 30.0);
            QCOMPARE(posted[i].point.y, -4.0);
            QCOMPARE(int(posted[i].button), 0);
            QCOMPARE(int(posted[i].location), 0);
            QVERIFY(posted[i].privateSource);
        }
        QCOMPARE(m_quartz->eventsAlive(), 0);
    }

    void postsStepByStep_data() {
        QTest::addColumn<Post>("post");
        QTest::addColumn<QStringList>("expected");
        const QString at = QStringLiteral("30 -4");
        const QString held = QStringLiteral("CGEventGetFlags");
        const QString keyPosted = QStringLiteral("CGEventPost 0");
        using Listener = CKeyboardListenerMac;
        QTest::newRow("a slide show begun and ended")
            << Post([] {
                   Listener::SetPPTFullScreen();
                   Listener::SetPPTFullScreen();
               })
            << QStringList{QStringLiteral("CGEventCreateKeyboardEvent null 36 1"),
                           QStringLiteral("CGEventSetFlags 1048576"),
                           keyPosted,
                           QStringLiteral("CGEventCreateKeyboardEvent null 53 1"),
                           held,
                           keyPosted};
        QTest::newRow("play or pause")
            << Post(Listener::SetPlayOrPause)
            << QStringList{QStringLiteral("CGEventCreateKeyboardEvent null 49 1"), held, keyPosted,
                           QStringLiteral("CGEventCreateKeyboardEvent null 49 0"), held, keyPosted};
        QTest::newRow("page up") << Post(Listener::SetPageUp)
                                 << QStringList{QStringLiteral("CGEventCreateKeyboardEvent null 116 1"), held,
                                                keyPosted};
        QTest::newRow("a move") << Post([] { Listener::SetMouseMove(30, -4); }) << postingOf(5, at);
        QTest::newRow("a press") << Post([] { Listener::SetMouseDown(30, -4); })
                                 << postingOf(5, at) + postingOf(1, at);
        QTest::newRow("a click") << Post([] { Listener::SetMouseClick(30, -4); })
                                 << postingOf(5, at) + postingOf(1, at) + postingOf(2, at);
        QTest::newRow("the camera's pane") << Post(Listener::SetpTosysCamera) << QStringList();
    }

    void postsStepByStep() {
        QFETCH(Post, post);
        CKeyboardListenerMac::EnterPPT = false;
        post();
        QTEST(calls(), "expected");
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
