// SPDX-License-Identifier: MIT
#include "ToolPanel.h"
#include "input/CKeyboardHandler.h"
#include "overlays/promptwindow2.h"
#include "support/TestMain.h"
#include "support/UserFile.h"

#include <QLabel>
#include <QScreen>
#include <QSignalMapper>

#include <optional>

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
    void init() {
        userfile::startAfresh();
        QVERIFY(userfile::write("<PenSetting><Setting><Language>0</Language></Setting></PenSetting>"));
        QCursor::setPos(600, 400);
        m_panel.emplace();
    }
    void cleanup() {
        m_panel.reset();
        QTRY_COMPARE(ToolPanel::objects(), 0);
    }
    void cleanupTestCase() { userfile::clear(); }

    void gOpensTheHeldToolOfKey4AndSClosesIt_data() { heldToolRows(); }
    void gOpensTheHeldToolOfKey4AndSClosesIt() {
        QFETCH(HeldToolChoice, heldTool);
        m_panel->openHeldTool(heldTool);
        QCOMPARE(ToolPanel::open<Spolight2>().size(), heldTool == HeldToolChoice::Spotlight ? 1 : 0);
        QCOMPARE(ToolPanel::open<Magnifie>().size(), heldTool == HeldToolChoice::Magnifier ? 1 : 0);
        QCOMPARE(ToolPanel::open<LightPen>().size(), heldTool == HeldToolChoice::Laser ? 1 : 0);
        m_panel->chord(pen::s);
        QCOMPARE(ToolPanel::openHeldTools(), 1);
        QTRY_COMPARE(ToolPanel::openHeldTools(), 0);
    }

    void unknownHeldToolOpensNothing() {
        for (int choice : {-1, 3, 100}) {
            m_panel->openHeldTool(choice);
            m_panel->moveTo(100, 1); // nor does it keep the pointer in
            QCOMPARE(posts(), QStringList());
            m_panel->chord(pen::s);
            QVERIFY(ToolPanel::nothingOpen());
        }
    }

    void heldToolFollowsThePointerWithinTheMargin_data() {
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

    void heldToolFollowsThePointerWithinTheMargin() {
        QFETCH(QPoint, pointer);
        QFETCH(QPoint, kept);
        m_panel->openHeldTool(HeldToolChoice::Laser);
        m_panel->moveTo(pointer.x(), pointer.y());
        QStringList expected;
        if (kept != pointer)
            expected += QStringLiteral("pointer 5 at %1,%2").arg(kept.x()).arg(kept.y());
        QCOMPARE(posts(), expected);
        QCOMPARE(Place::of(ToolPanel::heldTool()), kept);
    }

    void everyHeldToolFollowsThePointer_data() { heldToolRows(); }
    void everyHeldToolFollowsThePointer() {
        QFETCH(HeldToolChoice, heldTool);
        m_panel->openHeldTool(heldTool);
        const QWidget *tool = ToolPanel::heldTool();
        m_panel->moveTo(1, 700);
        QCOMPARE(Place::of(tool), QPoint(4, 700));
        // It is the setting that says which tool is fed, not which one is out.
        Settings::Key4P = (Number(heldTool) + 1) % 3;
        m_panel->moveTo(800, 600);
        QCOMPARE(Place::of(tool), QPoint(4, 700));
        Settings::Key4P = Number(heldTool);
        m_panel->moveTo(801, 601);
        QCOMPARE(Place::of(tool), QPoint(801, 601));
    }

    void laserIsDrawnWhereThePointerWasMovedTo() {
        Settings::LaserPenSize = 13;
        Settings::LaserPenColor = 22;
        m_panel->openHeldTool(HeldToolChoice::Laser);
        m_panel->moveTo(1, 300);
        QTRY_COMPARE(screenColourAt(4, 300), QColor(255, 22, 0));
        QTRY_COMPARE(screenColourAt(4 + 11, 300), QColor(255, 22, 0));
        QVERIFY(screenColourAt(4 + 15, 300) != QColor(255, 22, 0));
    }

    void pointerIsFedOnlyWhileAHeldToolIsOut() {
        m_panel->moveTo(1, 1);
        m_panel->openHeldTool(HeldToolChoice::Laser);
        m_panel->window.RecvGlobaleMouseMessage(kCGEventLeftMouseDown, 1, 1);
        m_panel->window.RecvGlobaleMouseMessage(kCGEventLeftMouseUp, 1, 1);
        m_panel->chord(pen::s);
        m_panel->moveTo(1, 1);
        QCOMPARE(posts(), QStringList());
        m_panel->press(pen::g);
        m_panel->moveTo(1, 1);
        QCOMPARE(posts(), QStringList{"pointer 5 at 4,4"});
    }

    void dismissedHeldToolKeepsThePointerInNoLonger() {
        m_panel->openHeldTool(HeldToolChoice::Laser);
        ToolPanel::click(ToolPanel::heldTool());
        QTRY_COMPARE(ToolPanel::objects(), 0);
        m_panel->moveTo(1, 1);
        QCOMPARE(posts(), QStringList());
    }

    void secondHeldToolClosesWithTheFirst() {
        for (const auto heldTool : {HeldToolChoice::Laser, HeldToolChoice::Laser, HeldToolChoice::Spotlight})
            m_panel->openHeldTool(heldTool);
        QCOMPARE(ToolPanel::open<LightPen>().size(), 2);
        QCOMPARE(ToolPanel::open<Spolight2>().size(), 1);
        m_panel->chord(pen::s);
        QTRY_VERIFY(ToolPanel::nothingOpen());
    }

    void endOfAnEarlierLaserDoesNotTakeThePointerFromTheNext() {
        Settings::LaserPenSize = 13;
        Settings::LaserPenColor = 22;
        m_panel->openHeldTool(HeldToolChoice::Laser);
        m_panel->chord(pen::s); // which leaves a little later
        m_panel->openHeldTool(HeldToolChoice::Laser);
        QCOMPARE(ToolPanel::openHeldTools(), 2);
        QTRY_COMPARE(ToolPanel::openHeldTools(), 1);
        m_panel->moveTo(1200, 800);
        QTRY_COMPARE(screenColourAt(1200, 800), QColor(255, 22, 0));
    }

    void annotationTogglesOnceWithoutARelease() {
        m_panel->press(pen::i);
        m_panel->window.RecvKeboardMessage(pen::i, 1);
        QCOMPARE(ToolPanel::objects(), 1);
        m_panel->release(pen::i);
        m_panel->chord(pen::i);
        QVERIFY(ToolPanel::nothingOpen());
    }

    void key3TogglesTheBlackboard() {
        Settings::Key3P = Number(KeyAction::Blackboard);
        m_panel->press(pen::j);
        QVERIFY(ToolPanel::nothingOpen());
        m_panel->release(pen::j);
        QVERIFY(ToolPanel::form(true));
        m_panel->chord(pen::j); // not armed
        QVERIFY(ToolPanel::form(true));
        m_panel->chord(pen::m);
        m_panel->chord(pen::j);
        QVERIFY(ToolPanel::nothingOpen());
    }

    void yStepsTheColourOfWhatIsOpen() {
        Settings::PenColor0 = 2;
        Settings::PenColor1 = 3;
        Settings::PenColor2 = 4;
        m_panel->chord(pen::y);
        m_panel->toggle(false);
        m_panel->toggle(true);
        for (const char *colour : {"#FF0000", "#009EF8", "#82FF20", "#FF0000"}) {
            for (const bool blackboard : {false, true}) {
                const QObject *prompt = ToolPanel::form(blackboard)->prompt();
                const QString swatch = prompt->findChild<QLabel *>(QStringLiteral("label_2"))->styleSheet();
                QVERIFY2(swatch.contains(QLatin1String(colour)), colour);
            }
            m_panel->chord(pen::y);
        }
    }

    void choosingAnActionArmsAgain_data() {
        QTest::addColumn<int>("id");
        QTest::addColumn<bool>("arms");
        QTest::newRow("key 2") << 12 << true;
        QTest::newRow("key 3") << 13 << true;
        QTest::newRow("key 4, single press") << 14 << true;
        QTest::newRow("key 4, long press") << 15 << false;
        QTest::newRow("a tool's setting") << 7 << false;
    }

    void choosingAnActionArmsAgain() {
        QFETCH(int, id);
        QFETCH(bool, arms);
        m_panel->press(pen::i);
        m_panel->window.recvQmlMessage1(id, 0, 0);
        m_panel->window.RecvKeboardMessage(pen::i, 1);
        QCOMPARE(ToolPanel::nothingOpen(), arms);
    }

    void aReportCountsWhoeverPassesItOn() {
        m_panel->chord(pen::i);
        QSignalMapper messenger;
        connect(&messenger, &QSignalMapper::mappedInt, &m_panel->window, &MainWindow::RecvWindowMessage);
        messenger.setMapping(this, 1);
        messenger.map(this);
        m_panel->chord(pen::i); // the annotation counts as closed, so this opens one
        QCOMPARE(ToolPanel::open<PizhuForm>().size(), 2);
    }

    void toolExitTimerDismissesTheToolOfKey4AndForgetsTheRest() {
        QBasicTimer &exit = toolExitTimerOf(m_panel->window);
        m_panel->window.ClickSpolightButton();
        m_panel->window.ClickLightPenButton();
        Settings::Key4P = Number(HeldToolChoice::Laser);
        exit.start(0, &m_panel->window);
        QTRY_VERIFY(!exit.isActive());
        QTRY_VERIFY(ToolPanel::open<LightPen>().isEmpty());

        Settings::Key4P = Number(HeldToolChoice::Spotlight); // the spotlight's turn, if it were still known
        exit.start(0, &m_panel->window);
        QTRY_VERIFY(!exit.isActive());
        m_panel->window.ClickMagnifierButton();
        Settings::Key4P = Number(HeldToolChoice::Magnifier);
        exit.start(0, &m_panel->window);
        QTRY_VERIFY(ToolPanel::open<Magnifie>().isEmpty()); // opened and asked last, so it goes last
        QCOMPARE(ToolPanel::open<Spolight2>().size(), 1);
    }

    void penWorksWhileThePanelIsClosed() {
        m_panel->window.show();
        m_panel->window.close();
        m_panel->openHeldTool(HeldToolChoice::Laser);
        QCOMPARE(ToolPanel::openHeldTools(), 1);
        QVERIFY(m_panel->window.isHidden());
    }

    void messagesOfTheInputHandlerReachTheDispatch() {
        m_panel.reset();
        vexa::registerKeyboardMessages();
        vexa::RecordingBackend session;
        CKeyboardHandler handler;
        MainWindow window;
        window.SetKeyboardClass(&handler);
        Settings::Key4P = Number(HeldToolChoice::Laser);
        for (int key : {kVK_Control, kVK_Shift, kVK_Option})
            session.feedModifier(key);
        session.feedKey(pen::g, true);
        QTRY_COMPARE(ToolPanel::openHeldTools(), 1);
        session.feedMove(1.7, 500.2);
        QTRY_COMPARE(told(session), QStringList{"pointer 5 at 4,500"});
        session.feedKey(pen::s, true);
        QTRY_COMPARE(ToolPanel::openHeldTools(), 0);
    }

    void toolsGoWithTheMainWindow() {
        m_panel->toggle(false);
        m_panel->toggle(true);
        for (const auto heldTool : {HeldToolChoice::Spotlight, HeldToolChoice::Magnifier,
                                    HeldToolChoice::Laser, HeldToolChoice::Laser})
            m_panel->openHeldTool(heldTool);
        QCOMPARE(ToolPanel::objects(), 6);
        m_panel.reset();
        QCOMPARE(ToolPanel::objects(), 0);
    }

private:
    QStringList posts() const { return told(m_panel->session); }

    std::optional<ToolPanel> m_panel;
};

VEXA_WIDGET_TEST_MAIN(PenToolsTest)
#include "PenToolsTest.moc"
