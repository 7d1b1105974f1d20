// SPDX-License-Identifier: MIT
#include "platform/SessionInput.h"
#include "platform/quartz/InputBackend.h"
#include "platform/x11/input/Connection.h"
#include "platform/x11/input/Pointer.h"
#include "support/Hand.h"

#include <QProcess>
#include <QTest>

#include <poll.h>

#include <xcb/xcb.h>

using namespace vexa::test;
namespace x11 = vexa::x11;

namespace {

struct Ended {
    int code;
    QByteArray output, error;
};

Ended simulate(const QStringList &arguments, const QByteArray &input = {}) {
    QProcess simulator;
    simulator.start(QStringLiteral(PEN_SIMULATOR), arguments);
    simulator.write(input);
    simulator.closeWriteChannel();
    if (!simulator.waitForFinished(60000) || simulator.exitStatus() != QProcess::NormalExit)
        return {-1, {}, {}};
    return {simulator.exitCode(), simulator.readAllStandardOutput(), simulator.readAllStandardError()};
}

QStringList words(const char *text) {
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

struct PointerEvent {
    int type; ///< of X
    int x, y;
    bool operator==(const PointerEvent &other) const {
        return type == other.type && x == other.x && y == other.y;
    }
};
using PointerEvents = QVector<PointerEvent>;

/// Each event of the pointer over the bare screen, drags left out. The ears tell only where it is.
class PointerWatch {
public:
    PointerWatch() {
        const std::uint32_t events =
            XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE;
        xcb_change_window_attributes(m_connection->get(), m_connection->root(), XCB_CW_EVENT_MASK, &events);
        sync();
    }

    PointerEvents take() {
        sync();
        PointerEvents taken;
        while (const x11::Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection->get())}) {
            const auto &pointer = reinterpret_cast<const xcb_motion_notify_event_t &>(*event);
            if (event->response_type != XCB_MOTION_NOTIFY || (pointer.state & XCB_BUTTON_MASK_1) == 0)
                taken.append({event->response_type, pointer.root_x, pointer.root_y});
        }
        return taken;
    }

private:
    /// Any question whose answer comes after all events so far.
    void sync() { QVERIFY(x11::pointerState(*m_connection)); }

    std::unique_ptr<x11::Connection> m_connection = x11::Connection::open();
};

} // namespace

/// The simulator as its users run it, heard by the same ears as a real pen.
class PenSimulatorTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        vexa::platform::useSessionInput({{0, 0}, {1920, 1080}, 1});
        m_hand = std::make_unique<Hand>();
        m_source = vexa::inputBackend().open();
        QVERIFY(m_source);
    }

    void cleanup() {
        m_source.reset();
        vexa::setInputBackend(nullptr);
    }

    void eachCommandTypesItsChords_data() {
        QTest::addColumn<QByteArray>("command");
        QTest::addColumn<QVector<int>>("letters");
        const int a = 0, s = 1, d = 2, g = 5, y = 16, i = 34, j = 38, m = 46;
        QTest::newRow("key 1, pressed") << QByteArray("key1 press") << QVector<int>{y};
        QTest::newRow("key 1, held") << QByteArray("key1 long") << QVector<int>{m, i};
        QTest::newRow("key 2, held") << QByteArray("key2 long") << QVector<int>{a};
        QTest::newRow("key 3, held") << QByteArray("key3 long") << QVector<int>{m, j};
        QTest::newRow("key 4, clicked") << QByteArray("key4 click") << QVector<int>{d};
        QTest::newRow("key 4, pressed") << QByteArray("key4 press") << QVector<int>{d};
        QTest::newRow("key 4, held") << QByteArray("key4 hold") << QVector<int>{g};
        QTest::newRow("key 4, let go") << QByteArray("key4 release") << QVector<int>{s};
        QTest::newRow("key 4, held for a time") << QByteArray("key4 hold 20ms") << QVector<int>{g, s};
        QTest::newRow("several") << QByteArray("key4 hold wait 5 key4 release key4 click")
                                 << QVector<int>{g, s, d};
        QTest::newRow("any chord") << QByteArray(
                                          "chord A chord S chord D chord G chord Y chord I chord J chord M")
                                   << QVector<int>{a, s, d, g, y, i, j, m};
    }

    void eachCommandTypesItsChords() {
        QFETCH(QByteArray, command);
        QCOMPARE(simulate(words(command.constData())).code, 0);
        QTEST(chordsHeard(), "letters");
    }

    void commandsCanComeOnStandardInput() {
        QCOMPARE(simulate({}, "key4 hold\n\nwait 5\nkey4 release key2 long\n").code, 0);
        QCOMPARE(chordsHeard(), (QVector<int>{5, 1, 0}));
    }

    void nothingStaysDown() {
        QCOMPARE(simulate(words("key4 hold drag 5 5 50 50")).code, 0);
        for (int key = 8; key < 256; ++key)
            QVERIFY(!m_hand->isDown(key));
    }

    void thePointerMovesClicksAndDrags() {
        PointerWatch watch;
        QCOMPARE(simulate(words("move 10 20 click 30 40 drag 50 60 70 80 90 60")).code, 0);
        QCOMPARE(watch.take(), (PointerEvents{{XCB_MOTION_NOTIFY, 10, 20},
                                              {XCB_MOTION_NOTIFY, 30, 40},
                                              {XCB_BUTTON_PRESS, 30, 40},
                                              {XCB_BUTTON_RELEASE, 30, 40},
                                              {XCB_MOTION_NOTIFY, 50, 60},
                                              {XCB_BUTTON_PRESS, 50, 60},
                                              {XCB_BUTTON_RELEASE, 90, 60}}));
    }

    void aTimedMoveGoesThere() {
        m_hand->moveTo(100, 100);
        PointerWatch watch;
        QCOMPARE(simulate(words("move 300 200 80ms")).code, 0);
        const PointerEvents moves = watch.take();
        QCOMPARE(moves.size(), 10); // one in 8 milliseconds
        QCOMPARE(moves.last(), (PointerEvent{XCB_MOTION_NOTIFY, 300, 200}));
        for (int i = 1; i < moves.size(); ++i)
            QVERIFY(moves[i].x > moves[i - 1].x);
    }

    void helpNamesEveryCommand() {
        const Ended help = simulate({QStringLiteral("--help")});
        QCOMPARE(help.code, 0);
        QVERIFY(help.error.isEmpty());
        for (const char *command : {"key1", "key2", "key3", "key4 click", "key4 hold", "key4 release",
                                    "chord", "move", "click", "drag", "wait"})
            QVERIFY2(help.output.contains(command), command);
    }

    void wrongWordsAreRefusedBeforeAnythingIsTyped_data() {
        QTest::addColumn<QByteArray>("command");
        for (const char *command : {"key5 press", "key4", "key4 hug", "key2 press", "chord Q", "chord",
                                    "move 1", "move a b", "wait", "wait soon", "wait -5", "wait 3h",
                                    "click 1", "drag 1 2", "drag 1 2 3", "drag 1 2 3 4 5", "dance"})
            QTest::newRow(command) << QByteArray(command);
    }

    void wrongWordsAreRefusedBeforeAnythingIsTyped() {
        QFETCH(QByteArray, command);
        const Ended ended = simulate(words("key4 click ") + words(command.constData()));
        QCOMPARE(ended.code, 2);
        QVERIFY(ended.error.startsWith("pen-simulator: "));
        QCOMPARE(ended.error.count('\n'), 1);
        QVERIFY(chordsHeard().isEmpty());
    }

    void withoutADisplayOneLineSaysSo() {
        const QByteArray display = qgetenv("DISPLAY");
        qunsetenv("DISPLAY");
        const Ended ended = simulate(words("key4 click"));
        qputenv("DISPLAY", display);
        QCOMPARE(ended.code, 1);
        QVERIFY(ended.error.contains("DISPLAY"));
        QCOMPARE(ended.error.count('\n'), 1);
    }

private:
    QVector<vexa::InputEvent> heardSoFar() {
        constexpr int markerOfX = 198, marker = 90; // F20
        m_hand->press(markerOfX);
        m_hand->release(markerOfX);
        QVector<vexa::InputEvent> heard;
        for (vexa::InputEvent event;;) {
            if (!m_source->next(event)) {
                pollfd descriptor{m_source->fd(), POLLIN, 0};
                if (poll(&descriptor, 1, 20000) != 1)
                    return {};
            } else if (event.keyCode != marker) {
                heard.append(event);
            } else if (event.type == 11) {
                return heard;
            }
        }
    }

    /// The letters that were pressed with exactly control, shift and option held.
    QVector<int> chordsHeard() {
        constexpr std::uint64_t penModifiers = 0x40000 | 0x20000 | 0x80000;
        QVector<int> chords;
        for (const vexa::InputEvent &event : heardSoFar())
            if (event.type == 10 && event.flags == penModifiers)
                chords.append(int(event.keyCode));
        return chords;
    }

    std::unique_ptr<Hand> m_hand;
    std::unique_ptr<vexa::InputSource> m_source;
};

QTEST_GUILESS_MAIN(PenSimulatorTest)
#include "PenSimulatorTest.moc"
