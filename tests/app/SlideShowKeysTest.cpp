// SPDX-License-Identifier: MIT
#include "ToolPanel.h"
#include "settings/ZrToolXmlClass.h"
#include "support/TestMain.h"
#include "support/Timers.h"
#include "support/UserFile.h"

using namespace vexa::test;

using Settings = ZrToolXmlClass;

namespace {

QStringList refocusAt(const QPoint &pointer) {
    return {QStringLiteral("pointer 5 at 1910,1070"), QStringLiteral("pointer 1 at 1910,1070"),
            QStringLiteral("pointer 2 at 1910,1070"),
            QStringLiteral("pointer 5 at %1,%2").arg(pointer.x()).arg(pointer.y()),
            QStringLiteral("down key 116 flags 0")};
}

} // namespace

/// What the keys post into a slide show, and what follows the end of a tool that was opened over one.
class SlideShowKeysTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { QTRY_COMPARE(ToolPanel::objects(), 0); }
    void cleanupTestCase() { userfile::clear(); }

    void slideShowKeyComesAfterTheRelease();
    void secondSlideShowActionEndsTheShow();
    void playerKeyGoesDownAndUp();
    void actionWithoutMeaningDoesNothing();
    void repeatedActionWithinTheDelayIsPostedOnce();
    void closingAToolInASlideShowRefocusesIt_data();
    void closingAToolInASlideShowRefocusesIt();
    void clickOnAHeldToolInASlideShowPostsNothing_data();
    void clickOnAHeldToolInASlideShowPostsNothing();
    void closingAToolWithoutASlideShowPostsNothing();
    void openingAToolCancelsTheRefocus_data();
    void openingAToolCancelsTheRefocus();
    void everyReportInASlideShowStartsOneRefocus();
    void refocusGoesOnWhenTheShowHasEndedMeanwhile_data();
    void refocusGoesOnWhenTheShowHasEndedMeanwhile();
    void reportsOfUnknownWindowsStartNothing();
};

void SlideShowKeysTest::init() {
    userfile::clear();
    userfile::forgetSettings();
    QCursor::setPos(600, 400);
}

void SlideShowKeysTest::slideShowKeyComesAfterTheRelease() {
    ToolPanel panel;
    Settings::Key2P = 1;
    panel.press(pen::a);
    QVERIFY(!coarseTimersOf(&panel.window).contains(200));
    panel.release(pen::a);
    QCOMPARE(told(panel.session), QStringList());
    QCOMPARE(coarseTimersOf(&panel.window).count(200), 1);
    QTRY_COMPARE(told(panel.session), QStringList{QStringLiteral("down key 36 flags 1048576")});
    QVERIFY(CKeyboardListenerMac::EnterPPT);
}

void SlideShowKeysTest::secondSlideShowActionEndsTheShow() {
    ToolPanel panel;
    panel.window.LongPressEvent(1);
    QTRY_COMPARE(panel.session.posts().size(), std::size_t(1));
    panel.window.LongPressEvent(1);
    QTRY_COMPARE(told(panel.session), (QStringList{QStringLiteral("down key 36 flags 1048576"),
                                                   QStringLiteral("down key 53 flags 0")}));
    QVERIFY(!CKeyboardListenerMac::EnterPPT);
}

void SlideShowKeysTest::playerKeyGoesDownAndUp() {
    ToolPanel panel;
    Settings::Key4C = 2;
    panel.press(pen::d);
    QCOMPARE(told(panel.session), QStringList());
    QCOMPARE(coarseTimersOf(&panel.window).count(200), 1);
    QTRY_COMPARE(told(panel.session),
                 (QStringList{QStringLiteral("down key 49 flags 0"), QStringLiteral("up key 49 flags 0")}));
}

void SlideShowKeysTest::actionWithoutMeaningDoesNothing() {
    ToolPanel panel;
    for (int action : {0, 5, 7, -1, -2147483647}) {
        Settings::Key2P = action;
        panel.chord(pen::a);
    }
    QVERIFY(!coarseTimersOf(&panel.window).contains(200));
    QCOMPARE(told(panel.session), QStringList());
    QVERIFY(ToolPanel::nothingOpen());
}

void SlideShowKeysTest::repeatedActionWithinTheDelayIsPostedOnce() {
    ToolPanel panel;
    panel.window.show();
    QTRY_VERIFY(panel.window.isHidden());
    panel.window.show();
    panel.window.LongPressEvent(1);
    panel.window.LongPressEvent(1);
    QTRY_COMPARE(panel.session.posts().size(), std::size_t(1));
    QVERIFY(coarseTimersOf(&panel.window).isEmpty());
    QVERIFY(panel.window.isVisible());
}

void SlideShowKeysTest::closingAToolInASlideShowRefocusesIt_data() {
    QTest::addColumn<QString>("how");
    QTest::newRow("annotation by the chord") << QStringLiteral("annotation chord");
    QTest::newRow("annotation by its button") << QStringLiteral("annotation exit");
    QTest::newRow("blackboard by the chord") << QStringLiteral("blackboard chord");
    QTest::newRow("blackboard by its button") << QStringLiteral("blackboard exit");
    QTest::newRow("spotlight") << QStringLiteral("spotlight");
    QTest::newRow("magnifier") << QStringLiteral("magnifier");
    QTest::newRow("laser") << QStringLiteral("laser");
}

void SlideShowKeysTest::closingAToolInASlideShowRefocusesIt() {
    QFETCH(QString, how);
    ToolPanel panel;
    Settings::Key3P = 3;
    const QStringList heldTools{QStringLiteral("spotlight"), QStringLiteral("magnifier"),
                                QStringLiteral("laser")};
    Settings::Key4P = heldTools.indexOf(how);
    CKeyboardListenerMac::EnterPPT = true;
    const bool blackboard = how.startsWith(QStringLiteral("blackboard"));
    if (heldTools.contains(how)) {
        panel.chord(pen::g);
        panel.chord(pen::s);
    } else {
        panel.chord(blackboard ? pen::j : pen::i);
        panel.chord(pen::m);
        if (how.endsWith(QStringLiteral("chord")))
            panel.chord(blackboard ? pen::j : pen::i);
        else if (blackboard)
            ToolPanel::pressExit(ToolPanel::open<blackBoardform>().constFirst());
        else
            ToolPanel::pressExit(ToolPanel::open<PizhuForm>().constFirst());
    }
    QTRY_VERIFY(ToolPanel::nothingOpen());
    QCOMPARE(coarseTimersOf(&panel.window).count(1000), 1);
    panel.session.clearPosts();
    QCursor::setPos(321, 234);
    QTRY_COMPARE(QCursor::pos(), QPoint(321, 234));
    QTRY_COMPARE(told(panel.session), refocusAt(QPoint(321, 234)));
    QCOMPARE(coarseTimersOf(&panel.window).count(1000), 0);
}

void SlideShowKeysTest::clickOnAHeldToolInASlideShowPostsNothing_data() {
    QTest::addColumn<int>("code");
    QTest::newRow("spotlight") << 0;
    QTest::newRow("magnifier") << 1;
    QTest::newRow("laser") << 2;
}

void SlideShowKeysTest::clickOnAHeldToolInASlideShowPostsNothing() {
    QFETCH(int, code);
    ToolPanel panel;
    Settings::Key4P = code;
    CKeyboardListenerMac::EnterPPT = true;
    panel.chord(pen::g);
    ToolPanel::click(ToolPanel::heldTool());
    QVERIFY(ToolPanel::nothingOpen());
    QCOMPARE(coarseTimersOf(&panel.window).count(1000), 0);
    QCOMPARE(told(panel.session), QStringList());
}

void SlideShowKeysTest::closingAToolWithoutASlideShowPostsNothing() {
    ToolPanel panel;
    panel.chord(pen::i);
    panel.chord(pen::i);
    for (int which = 0; which < 5; ++which)
        panel.window.RecvWindowMessage(which);
    QCOMPARE(coarseTimersOf(&panel.window).count(1000), 0);
    QCOMPARE(told(panel.session), QStringList());
}

void SlideShowKeysTest::openingAToolCancelsTheRefocus_data() {
    QTest::addColumn<int>("key");
    QTest::newRow("annotation") << pen::i;
    QTest::newRow("blackboard") << pen::j;
    QTest::newRow("held tool") << pen::g;
}

void SlideShowKeysTest::openingAToolCancelsTheRefocus() {
    QFETCH(int, key);
    ToolPanel panel;
    Settings::Key3P = 3;
    Settings::Key4P = 0;
    CKeyboardListenerMac::EnterPPT = true;
    panel.window.RecvWindowMessage(4);
    panel.chord(key);
    QVERIFY(!ToolPanel::nothingOpen());
    QCOMPARE(coarseTimersOf(&panel.window).count(1000), 0);
    QCOMPARE(told(panel.session), QStringList());
}

void SlideShowKeysTest::everyReportInASlideShowStartsOneRefocus() {
    for (int which = 0; which < 5; ++which) {
        ToolPanel panel;
        panel.window.RecvWindowMessage(which);
        QCOMPARE(coarseTimersOf(&panel.window).count(1000), 0);
        CKeyboardListenerMac::EnterPPT = true;
        panel.window.RecvWindowMessage(which);
        panel.window.RecvWindowMessage(which);
        QCOMPARE(coarseTimersOf(&panel.window).count(1000), 1);
    }
}

void SlideShowKeysTest::refocusGoesOnWhenTheShowHasEndedMeanwhile_data() {
    openingAToolCancelsTheRefocus_data();
}

void SlideShowKeysTest::refocusGoesOnWhenTheShowHasEndedMeanwhile() {
    QFETCH(int, key);
    ToolPanel panel;
    Settings::Key3P = 3;
    Settings::Key4P = 0;
    CKeyboardListenerMac::EnterPPT = true;
    panel.window.RecvWindowMessage(4);
    CKeyboardListenerMac::EnterPPT = false;
    panel.chord(key);
    QVERIFY(!ToolPanel::nothingOpen());
    QCOMPARE(coarseTimersOf(&panel.window).count(1000), 1);
}

void SlideShowKeysTest::reportsOfUnknownWindowsStartNothing() {
    ToolPanel panel;
    CKeyboardListenerMac::EnterPPT = true;
    panel.window.RecvWindowMessage(5);
    panel.window.RecvWindowMessage(-1);
    QCOMPARE(coarseTimersOf(&panel.window).count(1000), 0);
    QCOMPARE(told(panel.session), QStringList());
}

VEXA_WIDGET_TEST_MAIN(SlideShowKeysTest)
#include "SlideShowKeysTest.moc"
