// SPDX-License-Identifier: MIT
//
// How the held tools come and go: all three by the same rules, but for the mouse.
#include "overlays/HeldToolKinds.h"
#include "overlays/TickCounter.h"
#include "settings/ZrToolXmlClass.h"
#include "support/ForeignWindow.h"
#include "support/Patience.h"
#include "support/RealInput.h"
#include "support/TestMain.h"
#include "support/Timers.h"

#include <QPointer>
#include <QSignalSpy>

using namespace vexa::test;

namespace {

constexpr int guardTicks = 6; // of 150 ms: a life of 900

HeldToolKind fetchedKind() {
    QFETCH_GLOBAL(HeldToolKind, kind);
    return kind;
}

/// A window of the program itself, which is pressed while a tool opens.
class PressedWindow : public QWidget {
public:
    PressedWindow() : QWidget(nullptr, Qt::FramelessWindowHint | Qt::BypassWindowManagerHint) {
        setGeometry(100, 100, 200, 150);
        show();
    }
    int presses = 0;
    int releases = 0;

protected:
    void mousePressEvent(QMouseEvent * /*event*/) override { ++presses; }
    void mouseReleaseEvent(QMouseEvent * /*event*/) override { ++releases; }
};

/// The tool of the test's row, open over a picture, and what has been heard of it since.
class OpenTool {
public:
    explicit OpenTool(QPixmap *picture)
        : kind(fetchedKind())
        , tool(kind.open(picture))
        , ticks(tool)
        , reports(tool, SIGNAL(singalExitWindow(int))) {}
    /// A case that fails leaves the next one neither an open tool nor a mouse that is taken.
    ~OpenTool() { delete tool; }
    Q_DISABLE_COPY(OpenTool)

    bool isExposed() const { return QTest::qWaitForWindowExposed(tool, patience); }
    bool reachesGuardTick(int count) const {
        return waitFor([&] { return ticks.slowTicks() >= count; }) && ticks.slowTicks() == count;
    }
    /// So many ticks that draw, from now on.
    bool ticksOn(int count) const {
        const int from = ticks.quickTicks();
        return waitFor([&] { return ticks.quickTicks() >= from + count; });
    }
    /// Shown, with nothing left to paint.
    bool isPainted() const {
        return waitFor([&] { return ticks.quickTicks() >= 3 && ticks.paints() >= 1; });
    }
    /// Moves it, and returns when the screen shows something else than before.
    void showsOtherThan(const QImage &before, const QPoint &at) const {
        kind.move(tool, at);
        QVERIFY(ticksOn(3));
        QTRY_VERIFY_WITH_TIMEOUT(differences(shownOnScreen(), before) > 500, patience);
    }
    bool isDeleted() const {
        return waitFor([&] { return tool.isNull(); });
    }
    bool hasReportedOnce() const {
        return reports.size() == 1 && reports.first().first().toInt() == kind.code;
    }

    const HeldToolKind kind;
    const QPointer<QWidget> tool;
    TickCounter ticks;
    const QSignalSpy reports;

private:
    template<typename Condition> static bool waitFor(Condition condition) {
        return QTest::qWaitFor(condition, patience);
    }
};

} // namespace

class HeldToolLifeTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { allHeldTools(); }
    void init() {
        // A fault in a tool's life fails most of the cases, each at the end of its patience.
        if (m_oneFailed)
            QSKIP("a case before this one has failed");
        setToolSizes(40);
        ZrToolXmlClass::LaserPenColor = 510;
        ZrToolXmlClass::SportLightTran = 255;
        ZrToolXmlClass::MagnifierColor = 510;
        m_picture = screenWall();
        moveMouse(QPoint(200, 150) * screenRatio());
    }
    void cleanup() {
        m_oneFailed = m_oneFailed || QTest::currentTestFailed();
        releaseMouse(); // which a failed case may have left pressed
    }

    void theSignalComesBeforeTheSlot() {
        const HeldToolKind kind = fetchedKind();
        const std::unique_ptr<QWidget> tool(kind.make());
        const QMetaObject *meta = tool->metaObject();
        QCOMPARE(meta->className(), kind.name);
        QCOMPARE(meta->superClass(), &QWidget::staticMetaObject);
        const int first = meta->methodOffset();
        QCOMPARE(meta->methodCount() - first, 2);
        QCOMPARE(meta->method(first).methodSignature(), QByteArray("singalExitWindow(int)"));
        QCOMPARE(meta->method(first).methodType(), QMetaMethod::Signal);
        QCOMPARE(meta->method(first + 1).methodSignature(), QByteArray("ExitWindow()"));
        QCOMPARE(meta->method(first + 1).methodType(), QMetaMethod::Slot);
    }

    void isAFramelessTopmostWindowThatDeletesItself() {
        const HeldToolKind kind = fetchedKind();
        const std::unique_ptr<QWidget> tool(kind.make());
        QCOMPARE(tool->objectName(), QString(kind.name));
        QCOMPARE(tool->size(), QSize(400, 300));
        QCOMPARE(tool->windowTitle(), QStringLiteral("Form"));
        // The toolkit adds a hint of its own.
        QCOMPARE(tool->windowFlags() & ~Qt::WindowFlags(Qt::WindowFullscreenButtonHint),
                 Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        const Qt::WindowFlags before = tool->windowFlags();
        QVERIFY(tool->testAttribute(Qt::WA_DeleteOnClose));
        QVERIFY(tool->testAttribute(Qt::WA_MouseTracking));
        QCOMPARE(tool->cursor().shape(), Qt::BlankCursor);
        QVERIFY(!tool->isVisible());
        vexa::platform::showOverPrimaryScreen(*tool);
        QCOMPARE(tool->windowFlags(), before);
        QCOMPARE(tool->geometry(), QRect(QPoint(), screenPoints()));
    }

    void itsPictureIsTheBackgroundWhetherActiveOrNot() {
        const OpenTool open(&m_picture);
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            QCOMPARE(open.tool->palette().brush(group, QPalette::Window).textureImage(), m_picture.toImage());
    }

    void itDrawsThirtyTimesASecondAndIsGuardedAtFirst() {
        const OpenTool staying(&m_picture);
        const OpenTool leaving(&m_picture);
        QCOMPARE(coarseTimersOf(staying.tool), (QVector<int>{33, 150}));
        leave(leaving.tool);
        QCOMPARE(coarseTimersOf(leaving.tool), QVector<int>{150});
        QVERIFY(staying.reachesGuardTick(guardTicks));
        QCOMPARE(coarseTimersOf(staying.tool), QVector<int>{33});
        staying.tool->close();
        QVERIFY(leaving.isDeleted());
    }

    void anExitBeforeItsTimeWaitsForTheGuard() {
        const OpenTool open(&m_picture);
        QVERIFY(open.reachesGuardTick(2));
        leave(open.tool);
        const int drawnUntilExit = open.ticks.quickTicks();
        QTRY_VERIFY_WITH_TIMEOUT(!open.reports.isEmpty(), patience);
        QVERIFY(open.hasReportedOnce());
        QCOMPARE(open.ticks.slowTicks(), guardTicks);
        QCOMPARE(open.ticks.quickTicks(), drawnUntilExit);
        QVERIFY(open.isDeleted());
        QCOMPARE(open.reports.size(), 1);
    }

    void anExitAfterItsTimeIsAtOnce() {
        const OpenTool open(&m_picture);
        QVERIFY(open.reachesGuardTick(guardTicks));
        QVERIFY(open.tool->isVisible());
        QVERIFY(open.reports.isEmpty());
        leave(open.tool);
        QVERIFY(open.hasReportedOnce());
        QVERIFY(open.tool.isNull() || !open.tool->isVisible());
        QVERIFY(open.isDeleted());
    }

    void itReportsBeforeItClosesAndHasGivenTheMouseBack() {
        const OpenTool open(&m_picture);
        QVERIFY(open.isExposed());
        QTRY_COMPARE_WITH_TIMEOUT(QWidget::mouseGrabber() == open.tool, open.kind.takesMouse, patience);
        bool visible = false;
        const QWidget *grabber = open.tool;
        open.kind.whenItReports(open.tool, [&] {
            visible = open.tool->isVisible();
            grabber = QWidget::mouseGrabber();
        });
        leave(open.tool);
        QVERIFY(open.isDeleted());
        QVERIFY(open.hasReportedOnce());
        QVERIFY(visible);
        QVERIFY(!grabber);
    }

    void twoExitsReportOnce() {
        for (const int age : {0, guardTicks}) {
            const OpenTool open(&m_picture);
            if (age > 0)
                QVERIFY(open.reachesGuardTick(age));
            leave(open.tool);
            if (open.tool)
                leave(open.tool);
            QVERIFY(open.isDeleted());
            QCOMPARE(open.reports.size(), 1);
        }
    }

    void aClickDismissesItSilently() {
        const OpenTool open(&m_picture);
        QVERIFY(open.isExposed());
        pressMouse();
        QTRY_COMPARE_WITH_TIMEOUT(open.ticks.presses(), 1, patience);
        QVERIFY2(open.tool && open.tool->isVisible(), "the press alone dismissed it");
        releaseMouse();
        QVERIFY(open.isDeleted());
        QVERIFY(open.reports.isEmpty());
    }

    void aClickWhileTheExitWaitsIsSilentToo() {
        const OpenTool open(&m_picture);
        leave(open.tool);
        QTest::mouseClick(open.tool, Qt::LeftButton, Qt::NoModifier, {10, 10});
        if (open.tool)
            leave(open.tool); // another command before the event loop has deleted it
        QVERIFY(open.isDeleted());
        QVERIFY(open.reports.isEmpty());
    }

    void theDesktopMayCloseIt() {
        const OpenTool open(&m_picture);
        QVERIFY(open.isExposed());
        open.tool->windowHandle()->close();
        if (open.tool)
            leave(open.tool);
        QVERIFY(open.isDeleted());
        QVERIFY(open.reports.isEmpty());
    }

    void itMayBeDeletedByWhoeverItReportsTo() {
        const OpenTool open(&m_picture);
        QVERIFY(open.reachesGuardTick(guardTicks));
        open.kind.whenItReports(open.tool, [tool = open.tool] { delete tool; });
        leave(open.tool);
        QVERIFY(open.tool.isNull());
        QCOMPARE(open.reports.size(), 1);
    }

    void theLastPictureStaysUntilItCloses() {
        OpenTool open(&m_picture);
        open.ticks.keptYoung = true; // or it would close at once
        open.showsOtherThan(plainImage(m_picture), {120, 120});
        open.ticks.held = true; // or its time might be over before the look at it
        const QImage last = shownOnScreen();
        leave(open.tool);
        QCoreApplication::processEvents();
        QVERIFY(open.tool->isVisible());
        QCOMPARE(differences(shownOnScreen(), last), 0);
        open.ticks.keptYoung = open.ticks.held = false;
        QVERIFY(open.isDeleted());
    }

    void theLastPictureIsThereWhole() {
        OpenTool open(&m_picture);
        open.ticks.keptYoung = true;
        QVERIFY(open.isPainted());
        open.showsOtherThan(plainImage(m_picture), {120, 120});
        const QImage expected = shownOnScreen();
        open.showsOtherThan(expected, {250, 220});

        open.kind.move(open.tool, {120, 120});
        open.ticks.tick(open.tool); // which asks for a paint that has not come when it leaves
        open.ticks.held = true;
        leave(open.tool);
        QCoreApplication::processEvents();
        QVERIFY(screenBecomes(expected));
        open.ticks.keptYoung = open.ticks.held = false;
        QVERIFY(open.isDeleted());
    }

    void aStillPointerPaintsNothing() {
        const OpenTool open(&m_picture);
        QVERIFY(open.isPainted());
        const int paints = open.ticks.paints();
        QVERIFY(open.ticksOn(10));
        QCOMPARE(open.ticks.paints(), paints);
        open.kind.move(open.tool, {77, 88});
        QTRY_VERIFY_WITH_TIMEOUT(open.ticks.paints() > paints, patience);
    }

    void manyMovesBetweenTwoTicksArePaintedOnce() {
        const OpenTool open(&m_picture);
        QVERIFY(open.isPainted());
        const int paints = open.ticks.paints();
        for (int x = 0; x < 1000; ++x)
            open.kind.move(open.tool, {x % 300, 50});
        QVERIFY(open.ticksOn(5));
        QCOMPARE(open.ticks.paints(), paints + 1);
    }

    void theMouseIsTakenOnceTheWindowIsThere() {
        const OpenTool open(&m_picture); // takes the mouse before it can
        QVERIFY(open.isExposed());
        ForeignWindow above(ForeignWindow::Kind::Unmanaged, {100, 100, 300, 200}, Qt::green);
        QTRY_VERIFY_WITH_TIMEOUT(above.isViewable(), patience);
        clickAt({200, 150});
        if (open.kind.takesMouse) {
            QVERIFY(open.isDeleted());
            QCOMPARE(above.presses(), 0);
        } else {
            QTRY_COMPARE_WITH_TIMEOUT(above.presses(), 1, patience);
            QVERIFY(open.tool && open.tool->isVisible());
        }
    }

    void theMouseIsFreeAfterwards() {
        const OpenTool open(&m_picture);
        QVERIFY(open.isExposed());
        leave(open.tool);
        QVERIFY(open.isDeleted());
        ForeignWindow after(ForeignWindow::Kind::Unmanaged, {100, 100, 300, 200}, Qt::green);
        QTRY_VERIFY_WITH_TIMEOUT(after.isViewable(), patience);
        clickAt({200, 150});
        QTRY_COMPARE_WITH_TIMEOUT(after.presses(), 1, patience);
    }

    /// Which a program that locks the screen needs.
    void othersMayTakeTheMouseWhileThePointerRests() {
        const ForeignWindow locker(ForeignWindow::Kind::Unmanaged, {0, 0, 10, 10}, Qt::green);
        const OpenTool open(&m_picture);
        QVERIFY(open.isExposed());
        QVERIFY(open.ticksOn(1));
        for (int moves = 0; moves < 2; ++moves) {
            open.kind.move(open.tool, {300, 300}); // also a move beyond an edge ends at the same place
            open.ticks.tick(open.tool);
            QCOMPARE(QWidget::mouseGrabber() == open.tool, open.kind.takesMouse);
            QCOMPARE(locker.mayGrabMouse(), !open.kind.takesMouse);
            for (int tick = 0; tick < 2000 / 33 + 1; ++tick)
                open.ticks.tick(open.tool);
            QVERIFY(locker.mayGrabMouse());
        }
        clickAt(QPoint(400, 400) * screenRatio());
        QVERIFY(open.isDeleted());
    }

    void aPressFromBeforeItOpenedStaysWithItsWindow() {
        for (const bool handledBefore : {true, false}) {
            PressedWindow other;
            const QPoint middle = other.geometry().center() * screenRatio();
            QVERIFY(QTest::qWaitForWindowExposed(&other, patience));
            moveMouse(middle);
            pressMouse();
            if (handledBefore)
                QTRY_COMPARE_WITH_TIMEOUT(other.presses, 1, patience);
            releaseMouse(); // which waits to be handled while the tool opens
            const OpenTool open(&m_picture);
            QTRY_COMPARE_WITH_TIMEOUT(other.releases, 1, patience);
            QVERIFY(open.isExposed());
            QVERIFY(open.ticksOn(2));
            QVERIFY(open.tool && open.tool->isVisible());
            QCOMPARE(QWidget::mouseGrabber() == open.tool, open.kind.takesMouse);
            clickAt(middle);
            QVERIFY(open.isDeleted());
            QCOMPARE(other.presses, 1);
        }
    }

    void withoutAPictureItWorksToo() {
        const OpenTool open(nullptr);
        open.kind.move(open.tool, {5, 5});
        QVERIFY(open.ticksOn(3));
        leave(open.tool);
        QVERIFY(open.isDeleted());
    }

private:
    QPixmap m_picture;
    bool m_oneFailed = false;
};

VEXA_WIDGET_TEST_MAIN(HeldToolLifeTest)
#include "HeldToolLifeTest.moc"
