// SPDX-License-Identifier: MIT
#include "ToolPanel.h"
#include "support/RealInput.h"
#include "support/TestMain.h"
#include "support/UserFile.h"

#include <QSignalSpy>

using namespace vexa::test;

namespace {

const QPoint exitButton(1040, 1010); // on a screen of 1920 x 1080 its 60 points begin at 1010, 980

} // namespace

/// Annotation and blackboard left by their exit button, as a hand does it: afterwards the pen opens them
/// anew.
class ExitButtonTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        userfile::startAfresh();
        QApplication::setDoubleClickInterval(0); // milliseconds: the clicks of two tests are two clicks
    }
    void cleanupTestCase() { userfile::clear(); }

    void openedAgainAfterTheButtonWasUsed_data() {
        QTest::addColumn<bool>("blackboard");
        QTest::addColumn<bool>("byMouse");
        for (const bool blackboard : {false, true})
            for (const bool byMouse : {false, true})
                QTest::addRow("%s by %s", blackboard ? "blackboard" : "annotation",
                              byMouse ? "mouse" : "keyboard")
                    << blackboard << byMouse;
    }

    // A click reports once, the keyboard not at all.
    void openedAgainAfterTheButtonWasUsed() {
        QFETCH(bool, blackboard);
        QFETCH(bool, byMouse);
        ToolPanel panel;
        CKeyboardListenerMac::EnterPPT = !byMouse;
        panel.toggle(blackboard);
        const QPointer<vexa::DrawingForm> open = ToolPanel::form(blackboard);
        QVERIFY(open);
        QVERIFY(QTest::qWaitForWindowExposed(open));
        QSignalSpy reports(open, SIGNAL(signalPizhukWindow(int)));
        if (byMouse)
            clickAt(exitButton);
        else
            QTest::keyClick(ToolPanel::exitButtonOf(open), Qt::Key_Space);
        QTRY_COMPARE(ToolPanel::objects(), 0);
        QCOMPARE(reports.size(), byMouse ? 1 : 0);
        CKeyboardListenerMac::EnterPPT = false;
        opensAndClosesAgain(panel, blackboard);
    }

    void doubleClickLeavesBothAndThePenOpensThemAgain() {
        QApplication::setDoubleClickInterval(60000);
        ToolPanel panel;
        panel.toggle(false);
        panel.toggle(true);
        QVERIFY(QTest::qWaitForWindowExposed(ToolPanel::form(true)));
        clickAt(exitButton); // closes the upper one with its press
        QTRY_COMPARE(ToolPanel::objects(), 1);
        clickAt(exitButton);
        QTRY_COMPARE(ToolPanel::objects(), 0);
        opensAndClosesAgain(panel, false);
        opensAndClosesAgain(panel, true);
    }

private:
    /// One chord opens it, the next one closes it.
    static void opensAndClosesAgain(ToolPanel &panel, bool blackboard) {
        panel.toggle(blackboard);
        QCOMPARE(ToolPanel::objects(), 1);
        QVERIFY(ToolPanel::form(blackboard));
        panel.toggle(blackboard);
        QTRY_COMPARE(ToolPanel::objects(), 0);
    }
};

VEXA_WIDGET_TEST_MAIN(ExitButtonTest)
#include "ExitButtonTest.moc"
