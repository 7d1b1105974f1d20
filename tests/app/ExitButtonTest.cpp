// SPDX-License-Identifier: MIT
#include "ToolPanel.h"
#include "settings/ZrToolXmlClass.h"
#include "support/RealInput.h"
#include "support/TestMain.h"
#include "support/UserFile.h"

#include <QSignalSpy>

using namespace vexa::test;

using Settings = ZrToolXmlClass;

/// Annotation and blackboard left by their exit button, as a hand does it: afterwards the pen opens them
/// anew.
class ExitButtonTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        userfile::clear();
        userfile::forgetSettings();
        QApplication::setDoubleClickInterval(0); // milliseconds: the clicks of two tests are two clicks
    }
    void cleanupTestCase() { userfile::clear(); }

    void mouseClickReportsOnceAndThePenOpensItAgain_data() { faces(); }
    void mouseClickReportsOnceAndThePenOpensItAgain();
    void doubleClickLeavesBothAndThePenOpensThemAgain();
    void keyboardReportsNothingAndThePenOpensItAgain_data() { faces(); }
    void keyboardReportsNothingAndThePenOpensItAgain();

private:
    static void faces() {
        QTest::addColumn<bool>("blackboard");
        QTest::newRow("annotation") << false;
        QTest::newRow("blackboard") << true;
    }
    static vexa::DrawingForm *form(bool blackboard) {
        if (blackboard)
            return ToolPanel::open<blackBoardform>().value(0);
        return ToolPanel::open<PizhuForm>().value(0);
    }
    static QPushButton *exitButtonOf(const QWidget *form) {
        return form->findChild<QPushButton *>(QStringLiteral("pushButton"));
    }
    static void toggle(ToolPanel &panel, bool blackboard) {
        Settings::Key3P = 3;
        panel.chord(pen::m);
        panel.chord(blackboard ? pen::j : pen::i);
    }
    /// One chord opens it, the next one closes it.
    static void opensAndClosesAgain(ToolPanel &panel, bool blackboard) {
        toggle(panel, blackboard);
        QCOMPARE(ToolPanel::objects(), 1);
        QVERIFY(form(blackboard));
        toggle(panel, blackboard);
        QTRY_COMPARE(ToolPanel::objects(), 0);
    }
};

void ExitButtonTest::mouseClickReportsOnceAndThePenOpensItAgain() {
    QFETCH(bool, blackboard);
    ToolPanel panel;
    toggle(panel, blackboard);
    const QPointer<vexa::DrawingForm> open = form(blackboard);
    QVERIFY(open);
    QVERIFY(QTest::qWaitForWindowExposed(open));
    QSignalSpy reports(open, SIGNAL(signalPizhukWindow(int)));
    // Screen of 1920 x 1080: the button's 60 points begin at 1010, 980.
    clickAt({1040, 1010});
    QTRY_COMPARE(ToolPanel::objects(), 0);
    QCOMPARE(reports.size(), 1);
    opensAndClosesAgain(panel, blackboard);
}

void ExitButtonTest::doubleClickLeavesBothAndThePenOpensThemAgain() {
    QApplication::setDoubleClickInterval(60000);
    ToolPanel panel;
    toggle(panel, false);
    toggle(panel, true);
    QVERIFY(QTest::qWaitForWindowExposed(form(true)));
    clickAt({1040, 1010}); // closes the upper one with its press
    QTRY_COMPARE(ToolPanel::objects(), 1);
    clickAt({1040, 1010});
    QTRY_COMPARE(ToolPanel::objects(), 0);
    opensAndClosesAgain(panel, false);
    opensAndClosesAgain(panel, true);
}

void ExitButtonTest::keyboardReportsNothingAndThePenOpensItAgain() {
    QFETCH(bool, blackboard);
    ToolPanel panel;
    CKeyboardListenerMac::EnterPPT = true;
    toggle(panel, blackboard);
    const QPointer<vexa::DrawingForm> open = form(blackboard);
    QVERIFY(open);
    QVERIFY(QTest::qWaitForWindowExposed(open));
    QSignalSpy reports(open, SIGNAL(signalPizhukWindow(int)));
    QTest::keyClick(exitButtonOf(open), Qt::Key_Space);
    QTRY_COMPARE(ToolPanel::objects(), 0);
    QVERIFY(reports.isEmpty());
    CKeyboardListenerMac::EnterPPT = false;
    opensAndClosesAgain(panel, blackboard);
}

VEXA_WIDGET_TEST_MAIN(ExitButtonTest)
#include "ExitButtonTest.moc"
