// SPDX-License-Identifier: MIT
#include "ToolPanel.h"
#include "input/CKeyboardHandler.h"
#include "overlays/promptwindow2.h"
#include "settings/ZrToolXmlClass.h"
#include "support/TestMain.h"
#include "support/UserFile.h"

#include <QLabel>
#include <QScreen>
#include <QSignalMapper>

using namespace vexa::test;

using Settings = ZrToolXmlClass;

namespace {

/// Where a held tool stands. Its children keep that to themselves.
struct Place : vexa::HeldTool {
    static QPoint of(const QWidget *tool) {
        return (dynamic_cast<const vexa::HeldTool &>(*tool).*&Place::position)();
    }
};

QColor screenColourAt(int x, int y) {
    return QGuiApplication::primaryScreen()->grabWindow(0, x, y, 1, 1).toImage().pixelColor(0, 0);
}

/// Lets a test start the window's timer, which the window itself never does: only where a template is
/// instantiated may a private member be named.
template<QBasicTimer MainWindow::*timer> struct TimerOf {
    friend QBasicTimer &toolExitTimerOf(MainWindow &window) { return window.*timer; }
};
QBasicTimer &toolExitTimerOf(MainWindow &window);
template struct TimerOf<&MainWindow::m_toolExitTimer>;

} // namespace

class PenToolsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void cleanupTestCase() { userfile::clear(); }

    void gOpensTheHeldToolOfKey4AndSClosesIt_data();
    void gOpensTheHeldToolOfKey4AndSClosesIt();
    void unknownHeldToolOpensNothing();
    void heldToolFollowsThePointerWithinTheMargin_data();
    void heldToolFollowsThePointerWithinTheMargin();
    void everyHeldToolFollowsThePointer_data();
    void everyHeldToolFollowsThePointer();
    void laserIsDrawnWhereThePointerWasMovedTo();
    void pointerIsFedOnlyWhileAHeldToolIsOut();
    void dismissedHeldToolKeepsThePointerInNoLonger();
    void secondHeldToolClosesWithTheFirst();
    void endOfAnEarlierLaserDoesNotTakeThePointerFromTheNext();

    void annotationTogglesOnceWithoutARelease();
    void annotationOpensAgainAfterItsExitButton();
    void annotationOpensAgainAfterTheDesktopClosedIt();
    void key3TogglesTheBlackboard();
    void yStepsTheColourOfWhatIsOpen();
    void choosingAnActionArmsAgain_data();
    void choosingAnActionArmsAgain();

    void aReportCountsWhoeverPassesItOn();
    void toolExitTimerDismissesTheToolOfKey4AndForgetsTheRest();

    void penWorksWhileThePanelIsClosed();
    void messagesOfTheInputHandlerReachTheDispatch();
    void toolsGoWithTheMainWindow();
};

void PenToolsTest::init() {
    userfile::clear();
    QVERIFY(
        userfile::write("<PenSetting FirstRun=\"1\"><Setting><Language>0</Language></Setting></PenSetting>"));
    userfile::forgetSettings();
    QCursor::setPos(600, 400);
}

void PenToolsTest::cleanup() {
    QTRY_COMPARE(ToolPanel::objects(), 0);
}

void PenToolsTest::gOpensTheHeldToolOfKey4AndSClosesIt_data() {
    QTest::addColumn<int>("code");
    QTest::newRow("spotlight") << 0;
    QTest::newRow("magnifier") << 1;
    QTest::newRow("laser") << 2;
}

void PenToolsTest::gOpensTheHeldToolOfKey4AndSClosesIt() {
    QFETCH(int, code);
    ToolPanel panel;
    Settings::Key4P = code;
    panel.chord(pen::g);
    QCOMPARE(ToolPanel::open<Spolight2>().size(), code == 0 ? 1 : 0);
    QCOMPARE(ToolPanel::open<Magnifie>().size(), code == 1 ? 1 : 0);
    QCOMPARE(ToolPanel::open<LightPen>().size(), code == 2 ? 1 : 0);
    panel.chord(pen::s);
    QCOMPARE(ToolPanel::openHeldTools(), 1);
    QTRY_COMPARE(ToolPanel::openHeldTools(), 0);
}

void PenToolsTest::unknownHeldToolOpensNothing() {
    ToolPanel panel;
    for (int code : {-1, 3, 100}) {
        Settings::Key4P = code;
        panel.chord(pen::g);
        panel.window.RecvGlobaleMouseMessage(5, 100, 1); // nor does it keep the pointer in
        QCOMPARE(told(panel.session), QStringList());
        panel.chord(pen::s);
        QVERIFY(ToolPanel::nothingOpen());
    }
}

void PenToolsTest::heldToolFollowsThePointerWithinTheMargin_data() {
    QTest::addColumn<QPoint>("pointer");
    QTest::addColumn<QPoint>("kept");
    QTest::newRow("left") << QPoint(1, 500) << QPoint(4, 500);
    QTest::newRow("top") << QPoint(700, 0) << QPoint(700, 4);
    QTest::newRow("right") << QPoint(1919, 500) << QPoint(1916, 500);
    QTest::newRow("bottom") << QPoint(700, 1079) << QPoint(700, 1076);
    QTest::newRow("corner") << QPoint(1917, 3) << QPoint(1916, 4);
    QTest::newRow("outside") << QPoint(-300, 4000) << QPoint(4, 1076);
    QTest::newRow("just inside, left and top") << QPoint(4, 4) << QPoint(4, 4);
    QTest::newRow("just inside, right and bottom") << QPoint(1916, 1076) << QPoint(1916, 1076);
}

void PenToolsTest::heldToolFollowsThePointerWithinTheMargin() {
    QFETCH(QPoint, pointer);
    QFETCH(QPoint, kept);
    ToolPanel panel;
    Settings::Key4P = 2;
    panel.press(pen::g);
    panel.window.RecvGlobaleMouseMessage(5, pointer.x(), pointer.y());
    QStringList expected;
    if (kept != pointer)
        expected += QStringLiteral("pointer 5 at %1,%2").arg(kept.x()).arg(kept.y());
    QCOMPARE(told(panel.session), expected);
    QCOMPARE(Place::of(ToolPanel::heldTool()), kept);
}

void PenToolsTest::everyHeldToolFollowsThePointer_data() {
    gOpensTheHeldToolOfKey4AndSClosesIt_data();
}

void PenToolsTest::everyHeldToolFollowsThePointer() {
    QFETCH(int, code);
    ToolPanel panel;
    Settings::Key4P = code;
    panel.press(pen::g);
    QCOMPARE(ToolPanel::openHeldTools(), 1);
    const QWidget *tool = ToolPanel::heldTool();
    panel.window.RecvGlobaleMouseMessage(5, 1, 700);
    QCOMPARE(Place::of(tool), QPoint(4, 700));
    // It is the setting that says which tool is fed, not which one is out.
    Settings::Key4P = (code + 1) % 3;
    panel.window.RecvGlobaleMouseMessage(5, 800, 600);
    QCOMPARE(Place::of(tool), QPoint(4, 700));
    Settings::Key4P = code;
    panel.window.RecvGlobaleMouseMessage(5, 801, 601);
    QCOMPARE(Place::of(tool), QPoint(801, 601));
}

void PenToolsTest::laserIsDrawnWhereThePointerWasMovedTo() {
    Settings::LaserPenSize = 13;
    Settings::LaserPenColor = 22;
    ToolPanel panel;
    Settings::Key4P = 2;
    panel.press(pen::g);
    panel.window.RecvGlobaleMouseMessage(5, 1, 300);
    QTRY_COMPARE(screenColourAt(4, 300), QColor(255, 22, 0));
    QTRY_COMPARE(screenColourAt(4 + 11, 300), QColor(255, 22, 0));
    QVERIFY(screenColourAt(4 + 15, 300) != QColor(255, 22, 0));
}

void PenToolsTest::pointerIsFedOnlyWhileAHeldToolIsOut() {
    ToolPanel panel;
    Settings::Key4P = 2;
    panel.window.RecvGlobaleMouseMessage(5, 1, 1);
    panel.chord(pen::g);
    panel.window.RecvGlobaleMouseMessage(1, 1, 1);
    panel.window.RecvGlobaleMouseMessage(2, 1, 1);
    panel.chord(pen::s);
    panel.window.RecvGlobaleMouseMessage(5, 1, 1);
    QCOMPARE(told(panel.session), QStringList());
    panel.press(pen::g);
    panel.window.RecvGlobaleMouseMessage(5, 1, 1);
    QCOMPARE(told(panel.session), QStringList{QStringLiteral("pointer 5 at 4,4")});
}

void PenToolsTest::dismissedHeldToolKeepsThePointerInNoLonger() {
    ToolPanel panel;
    Settings::Key4P = 2;
    panel.press(pen::g);
    ToolPanel::click(ToolPanel::heldTool());
    QTRY_COMPARE(ToolPanel::objects(), 0);
    panel.window.RecvGlobaleMouseMessage(5, 1, 1);
    QCOMPARE(told(panel.session), QStringList());
}

void PenToolsTest::secondHeldToolClosesWithTheFirst() {
    ToolPanel panel;
    Settings::Key4P = 2;
    panel.chord(pen::g);
    panel.chord(pen::g);
    Settings::Key4P = 0;
    panel.chord(pen::g);
    QCOMPARE(ToolPanel::open<LightPen>().size(), 2);
    QCOMPARE(ToolPanel::open<Spolight2>().size(), 1);
    panel.chord(pen::s);
    QTRY_VERIFY(ToolPanel::nothingOpen());
}

void PenToolsTest::endOfAnEarlierLaserDoesNotTakeThePointerFromTheNext() {
    Settings::LaserPenSize = 13;
    Settings::LaserPenColor = 22;
    ToolPanel panel;
    Settings::Key4P = 2;
    panel.chord(pen::g);
    panel.chord(pen::s);
    QTest::qWait(300);
    panel.chord(pen::g);
    QTRY_COMPARE(ToolPanel::open<LightPen>().size(), 1); // the first one's time is up
    panel.window.RecvGlobaleMouseMessage(5, 1200, 800);
    QTRY_COMPARE(screenColourAt(1200, 800), QColor(255, 22, 0));
}

void PenToolsTest::annotationTogglesOnceWithoutARelease() {
    ToolPanel panel;
    panel.press(pen::i);
    panel.window.RecvKeboardMessage(pen::i, 1);
    QCOMPARE(ToolPanel::open<PizhuForm>().size(), 1);
    panel.release(pen::i);
    panel.chord(pen::i);
    QCOMPARE(ToolPanel::open<PizhuForm>().size(), 0);
}

void PenToolsTest::annotationOpensAgainAfterItsExitButton() {
    ToolPanel panel;
    panel.chord(pen::i);
    QCOMPARE(ToolPanel::open<PizhuForm>().size(), 1);
    ToolPanel::pressExit(ToolPanel::open<PizhuForm>().constFirst());
    QCOMPARE(ToolPanel::open<PizhuForm>().size(), 0);
    panel.chord(pen::i);
    QCOMPARE(ToolPanel::open<PizhuForm>().size(), 1);
    panel.chord(pen::i);
    QCOMPARE(ToolPanel::open<PizhuForm>().size(), 0);
}

void PenToolsTest::annotationOpensAgainAfterTheDesktopClosedIt() {
    ToolPanel panel;
    panel.chord(pen::i);
    ToolPanel::open<PizhuForm>().constFirst()->close();
    QTRY_COMPARE(ToolPanel::objects(), 0);
    panel.chord(pen::y);
    panel.chord(pen::i);
    QCOMPARE(ToolPanel::open<PizhuForm>().size(), 1);
}

void PenToolsTest::key3TogglesTheBlackboard() {
    ToolPanel panel;
    Settings::Key3P = 3;
    panel.press(pen::j);
    QVERIFY(ToolPanel::nothingOpen());
    panel.release(pen::j);
    QCOMPARE(ToolPanel::open<blackBoardform>().size(), 1);
    panel.chord(pen::j); // not armed
    QCOMPARE(ToolPanel::open<blackBoardform>().size(), 1);
    panel.chord(pen::m);
    panel.chord(pen::j);
    QCOMPARE(ToolPanel::open<blackBoardform>().size(), 0);
}

void PenToolsTest::yStepsTheColourOfWhatIsOpen() {
    Settings::PenColor0 = 2;
    Settings::PenColor1 = 3;
    Settings::PenColor2 = 4;
    ToolPanel panel;
    Settings::PenColor0 = 2;
    Settings::PenColor1 = 3;
    Settings::PenColor2 = 4;
    Settings::Key3P = 3;
    panel.chord(pen::y);
    panel.chord(pen::i);
    panel.chord(pen::j);
    QCOMPARE(ToolPanel::open<PizhuForm>().size(), 1);
    QCOMPARE(ToolPanel::open<blackBoardform>().size(), 1);
    const auto swatch = [](vexa::DrawingForm *form) {
        return form->prompt()->findChild<QLabel *>(QStringLiteral("label_2"))->styleSheet();
    };
    vexa::DrawingForm *forms[] = {ToolPanel::open<PizhuForm>().constFirst(),
                                  ToolPanel::open<blackBoardform>().constFirst()};
    for (const char *colour : {"#FF0000", "#009EF8", "#82FF20", "#FF0000"}) {
        for (vexa::DrawingForm *form : forms)
            QVERIFY2(swatch(form).contains(QLatin1String(colour)), colour);
        panel.chord(pen::y);
    }
}

void PenToolsTest::choosingAnActionArmsAgain_data() {
    QTest::addColumn<int>("id");
    QTest::addColumn<bool>("arms");
    QTest::newRow("key 2") << 12 << true;
    QTest::newRow("key 3") << 13 << true;
    QTest::newRow("key 4, single press") << 14 << true;
    QTest::newRow("key 4, long press") << 15 << false;
    QTest::newRow("a tool's setting") << 7 << false;
}

void PenToolsTest::choosingAnActionArmsAgain() {
    QFETCH(int, id);
    QFETCH(bool, arms);
    ToolPanel panel;
    panel.press(pen::i);
    panel.window.recvQmlMessage1(id, 0, 0);
    panel.window.RecvKeboardMessage(pen::i, 1);
    QCOMPARE(ToolPanel::open<PizhuForm>().size(), arms ? 0 : 1);
}

void PenToolsTest::aReportCountsWhoeverPassesItOn() {
    ToolPanel panel;
    panel.chord(pen::i);
    QSignalMapper messenger;
    connect(&messenger, &QSignalMapper::mappedInt, &panel.window, &MainWindow::RecvWindowMessage);
    messenger.setMapping(&panel.window, 1);
    messenger.map(&panel.window);
    panel.chord(pen::i); // the annotation counts as closed, so this opens one
    QCOMPARE(ToolPanel::open<PizhuForm>().size(), 2);
}

void PenToolsTest::toolExitTimerDismissesTheToolOfKey4AndForgetsTheRest() {
    ToolPanel panel;
    QBasicTimer &exit = toolExitTimerOf(panel.window);
    panel.window.ClickSpolightButton();
    panel.window.ClickLightPenButton();
    Settings::Key4P = 2;
    exit.start(0, &panel.window);
    QTRY_VERIFY(!exit.isActive());
    QTRY_VERIFY(ToolPanel::open<LightPen>().isEmpty());

    Settings::Key4P = 0; // the spotlight's turn, if it were still known
    exit.start(0, &panel.window);
    QTRY_VERIFY(!exit.isActive());
    panel.window.ClickMagnifierButton();
    Settings::Key4P = 1;
    exit.start(0, &panel.window);
    QTRY_VERIFY(ToolPanel::open<Magnifie>().isEmpty()); // opened and asked last, so it goes last
    QCOMPARE(ToolPanel::open<Spolight2>().size(), 1);
}

void PenToolsTest::penWorksWhileThePanelIsClosed() {
    ToolPanel panel;
    panel.window.show();
    panel.window.close();
    Settings::Key4P = 2;
    panel.chord(pen::g);
    QCOMPARE(ToolPanel::open<LightPen>().size(), 1);
    QVERIFY(panel.window.isHidden());
}

void PenToolsTest::messagesOfTheInputHandlerReachTheDispatch() {
    vexa::registerKeyboardMessages();
    vexa::RecordingBackend session;
    CKeyboardHandler handler;
    MainWindow window;
    window.SetKeyboardClass(&handler);
    Settings::Key4P = 2;
    for (int key : {59, 56, 58})
        session.feedModifier(key);
    session.feedKey(pen::g, true);
    QTRY_COMPARE(ToolPanel::open<LightPen>().size(), 1);
    session.feedMove(1.7, 500.2);
    QTRY_COMPARE(told(session), QStringList{QStringLiteral("pointer 5 at 4,500")});
    session.feedKey(pen::s, true);
    QTRY_COMPARE(ToolPanel::openHeldTools(), 0);
}

void PenToolsTest::toolsGoWithTheMainWindow() {
    {
        ToolPanel panel;
        Settings::Key3P = 3;
        panel.chord(pen::i);
        panel.chord(pen::j);
        for (int code : {0, 1, 2, 2}) {
            Settings::Key4P = code;
            panel.chord(pen::g);
        }
        QCOMPARE(ToolPanel::objects(), 6);
    }
    QCOMPARE(ToolPanel::objects(), 0);
}

VEXA_WIDGET_TEST_MAIN(PenToolsTest)
#include "PenToolsTest.moc"
