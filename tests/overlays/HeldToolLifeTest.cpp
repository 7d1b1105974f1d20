// SPDX-License-Identifier: MIT
//
// How the held tools come and go: all three by the same rules, but for the mouse.
#include "overlays/LightPen.h"
#include "overlays/Magnifie.h"
#include "overlays/ScreenProbe.h"
#include "overlays/Spolight2.h"
#include "overlays/TickCounter.h"
#include "platform/OverlayWindow.h"
#include "settings/ZrToolXmlClass.h"
#include "support/ForeignWindow.h"
#include "support/RealMouse.h"
#include "support/TestMain.h"

#include <QPointer>
#include <QSignalSpy>

#include <functional>

using namespace vexa::test;

namespace {

constexpr int guardTicks = 6; // of 150 ms: a life of 900

/// One of the tools, by what tests need of it.
struct Kind {
    std::function<QWidget *()> make;
    std::function<void(QWidget *)> press;
    std::function<void(QWidget *, QPixmap *)> setBackground;
    std::function<void(QWidget *, QPoint)> move;
    std::function<void(QWidget *, const std::function<void()> &)> whenItReports;
    int code;
    bool takesMouse;
    const char *name;
};

template<typename Tool> Kind kindOf(const char *name, int code, bool takesMouse) {
    return {[] { return new Tool; },
            [](QWidget *tool) { static_cast<Tool *>(tool)->SetMousePress(true); },
            [](QWidget *tool, QPixmap *picture) { static_cast<Tool *>(tool)->Setbackground(picture); },
            [](QWidget *tool, QPoint at) { static_cast<Tool *>(tool)->SetMouseMove(at.x(), at.y()); },
            [](QWidget *tool, const std::function<void()> &then) {
                QObject::connect(static_cast<Tool *>(tool), &Tool::singalExitWindow, then);
            },
            code,
            takesMouse,
            name};
}

void leave(QWidget *tool) {
    QMetaObject::invokeMethod(tool, "ExitWindow");
}

} // namespace

Q_DECLARE_METATYPE(Kind)

class HeldToolLifeTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void theSignalComesBeforeTheSlot_data() { kinds(); }
    void theSignalComesBeforeTheSlot();
    void isAFramelessTopmostWindowThatDeletesItself_data() { kinds(); }
    void isAFramelessTopmostWindowThatDeletesItself();
    void anExitBeforeItsTimeWaitsForTheGuard_data() { kinds(); }
    void anExitBeforeItsTimeWaitsForTheGuard();
    void anExitAfterItsTimeIsAtOnce_data() { kinds(); }
    void anExitAfterItsTimeIsAtOnce();
    void twoExitsReportOnce_data() { kinds(); }
    void twoExitsReportOnce();
    void twoExitsAfterItsTimeReportOnce_data() { kinds(); }
    void twoExitsAfterItsTimeReportOnce();
    void aClickDismissesItSilently_data() { kinds(); }
    void aClickDismissesItSilently();
    void aClickWhileTheExitWaitsIsSilentToo_data() { kinds(); }
    void aClickWhileTheExitWaitsIsSilentToo();
    void theDesktopMayCloseIt_data() { kinds(); }
    void theDesktopMayCloseIt();
    void itMayBeDeletedByWhoeverItReportsTo_data() { kinds(); }
    void itMayBeDeletedByWhoeverItReportsTo();
    void theLastPictureStaysUntilItCloses_data() { kinds(); }
    void theLastPictureStaysUntilItCloses();
    void aStillPointerPaintsNothing_data() { kinds(); }
    void aStillPointerPaintsNothing();
    void manyMovesBetweenTwoTicksArePaintedOnce_data() { kinds(); }
    void manyMovesBetweenTwoTicksArePaintedOnce();
    void theMouseIsTakenOnceTheWindowIsThere_data() { kinds(); }
    void theMouseIsTakenOnceTheWindowIsThere();
    void theMouseIsFreeAfterwards_data() { kinds(); }
    void theMouseIsFreeAfterwards();
    void withoutAPictureItWorksToo_data() { kinds(); }
    void withoutAPictureItWorksToo();
    void theSpotlightCanBeAnEmptyVeil();
    void theLaserCanHaveAClearWindow();
    void grabScreenOfTheMagnifierDoesNothing();

private:
    static void kinds();
    QWidget *open(const Kind &kind);

    QPixmap m_picture;
};

void HeldToolLifeTest::kinds() {
    QTest::addColumn<Kind>("kind");
    for (const Kind &kind : {kindOf<LightPen>("LightPen", 4, true), kindOf<Spolight2>("Spolight2", 2, false),
                             kindOf<Magnifie>("Magnifie", 3, true)})
        QTest::newRow(kind.name) << kind;
}

void HeldToolLifeTest::init() {
    ZrToolXmlClass::LaserPenSize = 40;
    ZrToolXmlClass::LaserPenColor = 510;
    ZrToolXmlClass::SportLightSize = 40;
    ZrToolXmlClass::SportLightTran = 255;
    ZrToolXmlClass::MagnifierSize = 40;
    ZrToolXmlClass::MagnifierColor = 510;
    m_picture = screenWall();
    moveMouse(QPoint(200, 150) * screenRatio());
}

QWidget *HeldToolLifeTest::open(const Kind &kind) {
    QWidget *tool = kind.make();
    kind.setBackground(tool, &m_picture);
    kind.press(tool);
    vexa::platform::showOverPrimaryScreen(*tool);
    return tool;
}

void HeldToolLifeTest::theSignalComesBeforeTheSlot() {
    QFETCH(Kind, kind);
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

void HeldToolLifeTest::isAFramelessTopmostWindowThatDeletesItself() {
    QFETCH(Kind, kind);
    const std::unique_ptr<QWidget> tool(kind.make());
    QCOMPARE(tool->objectName(), QString(kind.name));
    QCOMPARE(tool->size(), QSize(400, 300));
    QCOMPARE(tool->windowTitle(), QStringLiteral("Form"));
    const Qt::WindowFlags flags = Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
    QCOMPARE(tool->windowFlags() & flags, flags);
    const Qt::WindowFlags before = tool->windowFlags();
    QVERIFY(tool->testAttribute(Qt::WA_DeleteOnClose));
    QVERIFY(tool->testAttribute(Qt::WA_MouseTracking));
    QCOMPARE(tool->cursor().shape(), Qt::BlankCursor);
    QVERIFY(!tool->isVisible());
    vexa::platform::showOverPrimaryScreen(*tool);
    QCOMPARE(tool->windowFlags(), before);
    QCOMPARE(tool->geometry(), QRect(QPoint(), screenPoints()));
}

void HeldToolLifeTest::anExitBeforeItsTimeWaitsForTheGuard() {
    QFETCH(Kind, kind);
    QPointer<QWidget> tool = open(kind);
    const TickCounter ticks(tool);
    QSignalSpy reports(tool, SIGNAL(singalExitWindow(int)));
    QTRY_COMPARE_WITH_TIMEOUT(ticks.slowTicks(), 2, patience);
    leave(tool);
    const int drawnUntilExit = ticks.quickTicks();
    QTRY_VERIFY_WITH_TIMEOUT(!reports.isEmpty(), patience);
    QCOMPARE(reports.size(), 1);
    QCOMPARE(reports.first().first().toInt(), kind.code);
    QCOMPARE(ticks.slowTicks(), guardTicks);
    QCOMPARE(ticks.quickTicks(), drawnUntilExit);
    QTRY_VERIFY_WITH_TIMEOUT(tool.isNull(), patience);
    QCOMPARE(reports.size(), 1);
}

void HeldToolLifeTest::anExitAfterItsTimeIsAtOnce() {
    QFETCH(Kind, kind);
    QPointer<QWidget> tool = open(kind);
    const TickCounter ticks(tool);
    QSignalSpy reports(tool, SIGNAL(singalExitWindow(int)));
    QTRY_COMPARE_WITH_TIMEOUT(ticks.slowTicks(), guardTicks, patience);
    QVERIFY(tool->isVisible());
    QVERIFY(reports.isEmpty());
    leave(tool);
    QCOMPARE(reports.size(), 1);
    QCOMPARE(reports.first().first().toInt(), kind.code);
    QVERIFY(tool.isNull() || !tool->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(tool.isNull(), patience);
}

void HeldToolLifeTest::twoExitsReportOnce() {
    QFETCH(Kind, kind);
    QPointer<QWidget> tool = open(kind);
    QSignalSpy reports(tool, SIGNAL(singalExitWindow(int)));
    leave(tool);
    leave(tool);
    QTRY_VERIFY_WITH_TIMEOUT(tool.isNull(), patience);
    QCOMPARE(reports.size(), 1);
}

void HeldToolLifeTest::twoExitsAfterItsTimeReportOnce() {
    QFETCH(Kind, kind);
    QPointer<QWidget> tool = open(kind);
    const TickCounter ticks(tool);
    QSignalSpy reports(tool, SIGNAL(singalExitWindow(int)));
    QTRY_COMPARE_WITH_TIMEOUT(ticks.slowTicks(), guardTicks, patience);
    leave(tool);
    if (tool)
        leave(tool);
    QTRY_VERIFY_WITH_TIMEOUT(tool.isNull(), patience);
    QCOMPARE(reports.size(), 1);
}

void HeldToolLifeTest::aClickDismissesItSilently() {
    QFETCH(Kind, kind);
    QPointer<QWidget> tool = open(kind);
    QSignalSpy reports(tool, SIGNAL(singalExitWindow(int)));
    QVERIFY(QTest::qWaitForWindowExposed(tool));
    pressMouse();
    QTest::qWait(0);
    QVERIFY2(tool && tool->isVisible(), "the press alone dismissed it");
    releaseMouse();
    QTRY_VERIFY_WITH_TIMEOUT(tool.isNull(), patience);
    QVERIFY(reports.isEmpty());
}

void HeldToolLifeTest::aClickWhileTheExitWaitsIsSilentToo() {
    QFETCH(Kind, kind);
    QPointer<QWidget> tool = open(kind);
    QSignalSpy reports(tool, SIGNAL(singalExitWindow(int)));
    leave(tool);
    QTest::mouseClick(tool, Qt::LeftButton, Qt::NoModifier, {10, 10});
    if (tool)
        leave(tool); // another command before the event loop has deleted it
    QTRY_VERIFY_WITH_TIMEOUT(tool.isNull(), patience);
    QVERIFY(reports.isEmpty());
}

void HeldToolLifeTest::theDesktopMayCloseIt() {
    QFETCH(Kind, kind);
    QPointer<QWidget> tool = open(kind);
    QSignalSpy reports(tool, SIGNAL(singalExitWindow(int)));
    QVERIFY(QTest::qWaitForWindowExposed(tool));
    tool->windowHandle()->close();
    if (tool)
        leave(tool);
    QTRY_VERIFY_WITH_TIMEOUT(tool.isNull(), patience);
    QVERIFY(reports.isEmpty());
}

void HeldToolLifeTest::itMayBeDeletedByWhoeverItReportsTo() {
    QFETCH(Kind, kind);
    QPointer<QWidget> tool = open(kind);
    QSignalSpy reports(tool, SIGNAL(singalExitWindow(int)));
    const TickCounter ticks(tool);
    QTRY_COMPARE_WITH_TIMEOUT(ticks.slowTicks(), guardTicks, patience);
    kind.whenItReports(tool, [tool] { delete tool; });
    leave(tool);
    QVERIFY(tool.isNull());
    QCOMPARE(reports.size(), 1);
}

void HeldToolLifeTest::theLastPictureStaysUntilItCloses() {
    QFETCH(Kind, kind);
    QPointer<QWidget> tool = open(kind);
    const TickCounter ticks(tool);
    QImage wallOnly = m_picture.toImage();
    wallOnly.setDevicePixelRatio(1);
    kind.move(tool, {120, 120});
    QTRY_VERIFY_WITH_TIMEOUT(ticks.quickTicks() >= 3, patience);
    QTRY_VERIFY_WITH_TIMEOUT(differences(shownOnScreen(), wallOnly) > 500, patience);
    const QImage last = shownOnScreen();
    leave(tool);
    QTRY_VERIFY_WITH_TIMEOUT(!tool || ticks.slowTicks() >= guardTicks - 1, patience);
    if (tool)
        QCOMPARE(differences(shownOnScreen(), last), 0);
    QTRY_VERIFY_WITH_TIMEOUT(tool.isNull(), patience);
}

void HeldToolLifeTest::aStillPointerPaintsNothing() {
    QFETCH(Kind, kind);
    QPointer<QWidget> tool = open(kind);
    const TickCounter ticks(tool);
    QTRY_VERIFY_WITH_TIMEOUT(ticks.quickTicks() >= 3, patience);
    QTRY_VERIFY_WITH_TIMEOUT(ticks.paints() >= 1, patience);
    const int paints = ticks.paints();
    const int from = ticks.quickTicks();
    QTRY_VERIFY_WITH_TIMEOUT(ticks.quickTicks() >= from + 10, patience);
    QCOMPARE(ticks.paints(), paints);
    kind.move(tool, {77, 88});
    QTRY_VERIFY_WITH_TIMEOUT(ticks.paints() > paints, patience);
    tool->close();
}

void HeldToolLifeTest::manyMovesBetweenTwoTicksArePaintedOnce() {
    QFETCH(Kind, kind);
    QPointer<QWidget> tool = open(kind);
    const TickCounter ticks(tool);
    QTRY_VERIFY_WITH_TIMEOUT(ticks.quickTicks() >= 3, patience);
    QTRY_VERIFY_WITH_TIMEOUT(ticks.paints() >= 1, patience);
    const int paints = ticks.paints();
    for (int x = 0; x < 1000; ++x)
        kind.move(tool, {x % 300, 50});
    const int from = ticks.quickTicks();
    QTRY_VERIFY_WITH_TIMEOUT(ticks.quickTicks() >= from + 5, patience);
    QCOMPARE(ticks.paints(), paints + 1);
    tool->close();
}

void HeldToolLifeTest::theMouseIsTakenOnceTheWindowIsThere() {
    QFETCH(Kind, kind);
    QPointer<QWidget> tool = open(kind); // takes the mouse before it can
    QVERIFY(QTest::qWaitForWindowExposed(tool));
    ForeignWindow above(ForeignWindow::Kind::Unmanaged, {100, 100, 300, 200}, Qt::green);
    QTRY_VERIFY_WITH_TIMEOUT(above.isViewable(), patience);
    clickAt({200, 150});
    if (kind.takesMouse) {
        QTRY_VERIFY_WITH_TIMEOUT(tool.isNull(), patience);
        QCOMPARE(above.presses(), 0);
    } else {
        QTRY_COMPARE_WITH_TIMEOUT(above.presses(), 1, patience);
        QVERIFY(tool && tool->isVisible());
        tool->close();
    }
}

void HeldToolLifeTest::theMouseIsFreeAfterwards() {
    QFETCH(Kind, kind);
    QPointer<QWidget> tool = open(kind);
    QVERIFY(QTest::qWaitForWindowExposed(tool));
    leave(tool);
    QTRY_VERIFY_WITH_TIMEOUT(tool.isNull(), patience);
    ForeignWindow after(ForeignWindow::Kind::Unmanaged, {100, 100, 300, 200}, Qt::green);
    QTRY_VERIFY_WITH_TIMEOUT(after.isViewable(), patience);
    clickAt({200, 150});
    QTRY_COMPARE_WITH_TIMEOUT(after.presses(), 1, patience);
}

void HeldToolLifeTest::withoutAPictureItWorksToo() {
    QFETCH(Kind, kind);
    QPointer<QWidget> tool = kind.make();
    const TickCounter ticks(tool);
    kind.setBackground(tool, nullptr);
    kind.press(tool);
    vexa::platform::showOverPrimaryScreen(*tool);
    kind.move(tool, {5, 5});
    QTRY_VERIFY_WITH_TIMEOUT(ticks.quickTicks() >= 3, patience);
    leave(tool);
    QTRY_VERIFY_WITH_TIMEOUT(tool.isNull(), patience);
}

void HeldToolLifeTest::theSpotlightCanBeAnEmptyVeil() {
    Spolight2 tool;
    tool.Set_Background_OpaCity(100);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        QCOMPARE(tool.palette().brush(group, QPalette::Window), QBrush(QColor(0, 0, 0, 100)));
    QVERIFY(tool.autoFillBackground());
    tool.Set_Background_OpaCity(256);
    QVERIFY(!tool.palette().color(QPalette::Window).isValid());
}

void HeldToolLifeTest::theLaserCanHaveAClearWindow() {
    LightPen tool;
    tool.Setbackground_transparent();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        QCOMPARE(tool.palette().brush(group, QPalette::Window), QBrush(Qt::transparent));
}

void HeldToolLifeTest::grabScreenOfTheMagnifierDoesNothing() {
    Magnifie tool;
    const QPalette before = tool.palette();
    tool.grabScreen();
    QCOMPARE(tool.palette(), before);
    QVERIFY(!tool.isVisible());
}

VEXA_WIDGET_TEST_MAIN(HeldToolLifeTest)
#include "HeldToolLifeTest.moc"
