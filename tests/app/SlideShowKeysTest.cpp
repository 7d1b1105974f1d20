// SPDX-License-Identifier: MIT
#include "ToolPanel.h"
#include "support/Table.h"
#include "support/TestMain.h"
#include "support/Timers.h"
#include "support/UserFile.h"

#include <optional>

using namespace vexa::test;

using Settings = ZrToolXmlClass;

/// What the keys post into a slide show, and what follows the end of a tool that was opened over one.
class SlideShowKeysTest : public QObject {
    Q_OBJECT

    using Closings = Table<int, HeldToolChoice, bool>;

private slots:
    void init() {
        userfile::startAfresh();
        QCursor::setPos(600, 400);
        m_panel.emplace();
        Settings::Key3P = Number(KeyAction::Blackboard);
    }
    void cleanup() {
        m_panel.reset();
        QTRY_COMPARE(ToolPanel::objects(), 0);
    }
    void cleanupTestCase() { userfile::clear(); }

    void slideShowKeyComesAfterTheRelease() {
        Settings::Key2P = Number(KeyAction::SlideShow);
        m_panel->press(pen::a);
        QCOMPARE(timersOf(200), 0);
        m_panel->release(pen::a);
        QCOMPARE(posts(), QStringList());
        QCOMPARE(timersOf(200), 1);
        QTRY_COMPARE(posts(), QStringList{"down key 36 flags 1048576"});
        QVERIFY(CKeyboardListenerMac::EnterPPT);
    }

    void secondSlideShowActionEndsTheShow() {
        m_panel->window.LongPressEvent(Number(KeyAction::SlideShow));
        QTRY_COMPARE(posts().size(), 1);
        m_panel->window.LongPressEvent(Number(KeyAction::SlideShow));
        QTRY_COMPARE(posts(), (QStringList{"down key 36 flags 1048576", "down key 53 flags 0"}));
        QVERIFY(!CKeyboardListenerMac::EnterPPT);
    }

    void playerKeyGoesDownAndUp() {
        Settings::Key4C = Number(KeyAction::PlayPause);
        m_panel->press(pen::d);
        QCOMPARE(posts(), QStringList());
        QCOMPARE(timersOf(200), 1);
        QTRY_COMPARE(posts(), (QStringList{"down key 49 flags 0", "up key 49 flags 0"}));
    }

    void actionWithoutMeaningDoesNothing() {
        for (const Number action :
             {Number(KeyAction::None), Number(5), Number(7), Number(-1), Number(-2147483647)}) {
            Settings::Key2P = action;
            m_panel->chord(pen::a);
        }
        QCOMPARE(timersOf(200), 0);
        QCOMPARE(posts(), QStringList());
        QVERIFY(ToolPanel::nothingOpen());
    }

    void repeatedActionWithinTheDelayIsPostedOnce() {
        m_panel->window.show();
        QTRY_VERIFY(m_panel->window.isHidden());
        m_panel->window.show();
        m_panel->window.LongPressEvent(Number(KeyAction::SlideShow));
        m_panel->window.LongPressEvent(Number(KeyAction::SlideShow));
        QTRY_COMPARE(posts().size(), 1);
        QVERIFY(coarseTimersOf(&m_panel->window).isEmpty());
        QVERIFY(m_panel->window.isVisible());
    }

    void closingAToolInASlideShowRefocusesIt_data() {
        Closings::begin();
        QTest::newRow("annotation by the chord") << pen::i << noHeldTool << false;
        QTest::newRow("annotation by its button") << pen::i << noHeldTool << true;
        QTest::newRow("blackboard by the chord") << pen::j << noHeldTool << false;
        QTest::newRow("blackboard by its button") << pen::j << noHeldTool << true;
        QTest::newRow("spotlight") << pen::g << HeldToolChoice::Spotlight << false;
        QTest::newRow("magnifier") << pen::g << HeldToolChoice::Magnifier << false;
        QTest::newRow("laser") << pen::g << HeldToolChoice::Laser << false;
    }

    void closingAToolInASlideShowRefocusesIt() {
        const auto [key, heldTool, byItsButton] = Closings::row();
        CKeyboardListenerMac::EnterPPT = true;
        Settings::Key4P = Number(heldTool);
        m_panel->chord(key);
        m_panel->chord(pen::m);
        if (byItsButton)
            ToolPanel::pressExit(ToolPanel::form(key == pen::j));
        else
            m_panel->chord(key == pen::g ? pen::s : key);
        QTRY_VERIFY(ToolPanel::nothingOpen());
        QCOMPARE(timersOf(1000), 1);
        m_panel->session.clearPosts();
        QCursor::setPos(321, 234);
        QTRY_COMPARE(QCursor::pos(), QPoint(321, 234));
        QTRY_COMPARE(posts(),
                     (QStringList{"pointer 5 at 1910,1070", "pointer 1 at 1910,1070",
                                  "pointer 2 at 1910,1070", "pointer 5 at 321,234", "down key 116 flags 0"}));
        QCOMPARE(timersOf(1000), 0);
    }

    void clickOnAHeldToolInASlideShowPostsNothing_data() { heldToolRows(); }
    void clickOnAHeldToolInASlideShowPostsNothing() {
        QFETCH(HeldToolChoice, heldTool);
        CKeyboardListenerMac::EnterPPT = true;
        m_panel->openHeldTool(heldTool);
        ToolPanel::click(ToolPanel::heldTool());
        QVERIFY(ToolPanel::nothingOpen());
        QCOMPARE(timersOf(1000), 0);
        QCOMPARE(posts(), QStringList());
    }

    void closingAToolWithoutASlideShowPostsNothing() {
        m_panel->chord(pen::i);
        m_panel->chord(pen::i);
        for (int which = 0; which < 5; ++which)
            m_panel->window.RecvWindowMessage(which);
        QCOMPARE(timersOf(1000), 0);
        QCOMPARE(posts(), QStringList());
    }

    void openingAToolCancelsTheRefocusWhileTheShowGoesOn_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("goesOn");
        for (const bool goesOn : {true, false})
            for (const int key : {pen::i, pen::j, pen::g})
                QTest::addRow("key %d, show %s", key, goesOn ? "goes on" : "has ended") << key << goesOn;
    }

    void openingAToolCancelsTheRefocusWhileTheShowGoesOn() {
        QFETCH(int, key);
        QFETCH(bool, goesOn);
        Settings::Key4P = Number(HeldToolChoice::Spotlight);
        CKeyboardListenerMac::EnterPPT = true;
        m_panel->window.RecvWindowMessage(Number(vexa::ClosingReport::Laser));
        CKeyboardListenerMac::EnterPPT = goesOn;
        m_panel->chord(key);
        QVERIFY(!ToolPanel::nothingOpen());
        QCOMPARE(timersOf(1000), goesOn ? 0 : 1);
        QCOMPARE(posts(), QStringList());
    }

    void everyReportInASlideShowStartsOneRefocus() {
        for (int which = -1; which < 6; ++which) {
            m_panel.emplace();
            m_panel->window.RecvWindowMessage(which);
            QCOMPARE(timersOf(1000), 0);
            CKeyboardListenerMac::EnterPPT = true;
            m_panel->window.RecvWindowMessage(which);
            m_panel->window.RecvWindowMessage(which);
            QCOMPARE(timersOf(1000), which >= 0 && which < 5 ? 1 : 0);
            QCOMPARE(posts(), QStringList());
        }
    }

private:
    QStringList posts() const { return told(m_panel->session); }
    int timersOf(int milliseconds) { return coarseTimersOf(&m_panel->window).count(milliseconds); }

    std::optional<ToolPanel> m_panel;
};

VEXA_WIDGET_TEST_MAIN(SlideShowKeysTest)
#include "SlideShowKeysTest.moc"
