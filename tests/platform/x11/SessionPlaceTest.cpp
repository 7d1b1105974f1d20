// SPDX-License-Identifier: MIT
#include "platform/x11/SessionFixture.h"

using namespace vexa::test;

/// Where events are reported and posted, as the primary screen lies.
class SessionPlaceTest : public QObject, private vexa::test::SessionFixture {
    Q_OBJECT

private slots:
    void init() { openSession(); }
    void cleanup() { closeSession(); }

    void positionsFollowThePrimaryScreen() {
        vexa::platform::followPrimaryScreen({{800, 100}, {1120, 980}, 1});
        QCOMPARE(hear([&] { m_hand->moveTo(799, 99); }), (All{toldAt(kCGEventMouseMoved, -1, -1)}));
        QVERIFY(postMouse(kCGEventMouseMoved, -10, 20));
        QCOMPARE(pointer(), QPoint(790, 120));
    }

    /// The toolkit, whose screens the windows are on, knows nothing of the parts.
    void aSplitMonitorIsOneScreen() {
        run(QStringLiteral("xrandr --setmonitor '*left' 960/300x1080/300+0+0 screen"));
        run(QStringLiteral("xrandr --setmonitor 'right' 960/300x1080/300+960+0 none"));
        QCOMPARE(hear([&] { m_hand->moveTo(1000, 20); }), (All{toldAt(kCGEventMouseMoved, 1000, 20)}));
        QVERIFY(postMouse(kCGEventMouseMoved, 990, 20));
        QCOMPARE(pointer().x(), 990);
        run(QStringLiteral("xrandr --delmonitor left; xrandr --delmonitor right"));
    }

    void positionsAreInPoints() {
        vexa::platform::useSessionInput({{0, 0}, {1920, 1080}, 2});
        m_source = vexa::inputBackend().open();
        QCOMPARE(hear([&] { m_hand->moveTo(201, 100); }), (All{toldAt(kCGEventMouseMoved, 100.5, 50)}));
        QVERIFY(postMouse(kCGEventMouseMoved, 100, 30));
        QCOMPARE(pointer(), QPoint(200, 60));
    }
};

QTEST_GUILESS_MAIN(SessionPlaceTest)
#include "SessionPlaceTest.moc"
