// SPDX-License-Identifier: MIT
#pragma once

#include "annotation/PizhuForm.h"
#include "annotation/blackBoardform.h"
#include "app/MainWindow.h"
#include "fakes/RecordingBackend.h"
#include "input/CKeyboardListenerMac.h"
#include "overlays/LightPen.h"
#include "overlays/Magnifie.h"
#include "overlays/Spolight2.h"
#include "settings/ZrToolXmlClass.h"
#include "support/ViewNumbers.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

/// The keys of the pen.
namespace pen {
constexpr int a = kVK_ANSI_A;
constexpr int s = kVK_ANSI_S;
constexpr int d = kVK_ANSI_D;
constexpr int g = kVK_ANSI_G;
constexpr int y = kVK_ANSI_Y;
constexpr int i = kVK_ANSI_I;
constexpr int j = kVK_ANSI_J;
constexpr int m = kVK_ANSI_M;
} // namespace pen

/// What key 4 is set to where a test opens none.
constexpr auto noHeldTool = HeldToolChoice(-1);

/// A main window with a pen, in a session that only writes down what is posted into it.
class ToolPanel {
public:
    ToolPanel() { CKeyboardListenerMac::EnterPPT = false; }
    ~ToolPanel() { CKeyboardListenerMac::EnterPPT = false; }

    vexa::RecordingBackend session;
    MainWindow window;

    void holdModifiers(bool held) {
        for (int key : {kVK_Control, kVK_Shift, kVK_Option})
            window.RecvKeboardMessage(key, held ? 1 : 0);
    }
    void press(int key) {
        holdModifiers(true);
        window.RecvKeboardMessage(key, 1);
    }
    void release(int key) {
        window.RecvKeboardMessage(key, 0);
        holdModifiers(false);
    }
    void chord(int key) {
        press(key);
        release(key);
    }
    void openHeldTool(vexa::test::Number choice) {
        ZrToolXmlClass::Key4P = choice;
        chord(pen::g);
    }
    /// Opens or closes the annotation or, with key 3 set to it, the blackboard, whatever was pressed before.
    void toggle(bool blackboard) {
        ZrToolXmlClass::Key3P = vexa::test::Number(KeyAction::Blackboard);
        chord(pen::m);
        chord(blackboard ? pen::j : pen::i);
    }
    void moveTo(int x, int y) { window.RecvGlobaleMouseMessage(kCGEventMouseMoved, x, y); }

    /// The windows of that kind that are on the screen.
    template<typename Tool> static QList<Tool *> open() {
        QList<Tool *> found;
        for (QWidget *widget : QApplication::topLevelWidgets())
            if (auto *tool = qobject_cast<Tool *>(widget); tool && tool->isVisible())
                found += tool;
        return found;
    }
    /// The annotation or the blackboard, or null.
    static vexa::DrawingForm *form(bool blackboard) {
        if (blackboard)
            return open<blackBoardform>().value(0);
        return open<PizhuForm>().value(0);
    }
    static QList<QWidget *> heldTools() {
        QList<QWidget *> tools;
        for (LightPen *tool : open<LightPen>())
            tools += tool;
        for (Magnifie *tool : open<Magnifie>())
            tools += tool;
        for (Spolight2 *tool : open<Spolight2>())
            tools += tool;
        return tools;
    }
    static int openHeldTools() { return heldTools().size(); }
    /// One of the held tools that are open.
    static QWidget *heldTool() { return heldTools().constFirst(); }
    /// Every object of a tool, also of one that is about to go.
    static int objects() {
        int count = 0;
        for (QWidget *widget : QApplication::topLevelWidgets())
            count += qobject_cast<LightPen *>(widget) || qobject_cast<Magnifie *>(widget) ||
                     qobject_cast<Spolight2 *>(widget) || qobject_cast<PizhuForm *>(widget) ||
                     qobject_cast<blackBoardform *>(widget);
        return count;
    }
    static bool nothingOpen() { return openHeldTools() == 0 && !form(false) && !form(true); }

    /// A click on a held tool: its release dismisses it.
    static void click(QWidget *tool) { QTest::mouseClick(tool, Qt::LeftButton, {}, QPoint(300, 300)); }
    static QPushButton *exitButtonOf(const QWidget *form) {
        return form->findChild<QPushButton *>(QStringLiteral("pushButton"));
    }
    /// A press on the exit button of annotation or blackboard.
    static void pressExit(QWidget *form) { QTest::mousePress(exitButtonOf(form), Qt::LeftButton); }
};

/// The rows of a test that holds for all three held tools.
inline void heldToolRows() {
    QTest::addColumn<HeldToolChoice>("heldTool");
    QTest::newRow("spotlight") << HeldToolChoice::Spotlight;
    QTest::newRow("magnifier") << HeldToolChoice::Magnifier;
    QTest::newRow("laser") << HeldToolChoice::Laser;
}

/// The rows of a test that holds for everything that the pen opens.
inline void toolRows() {
    QTest::addColumn<int>("key");
    QTest::addColumn<HeldToolChoice>("heldTool");
    QTest::newRow("annotation") << pen::i << noHeldTool;
    QTest::newRow("blackboard") << pen::j << noHeldTool;
    QTest::newRow("spotlight") << pen::g << HeldToolChoice::Spotlight;
    QTest::newRow("magnifier") << pen::g << HeldToolChoice::Magnifier;
    QTest::newRow("laser") << pen::g << HeldToolChoice::Laser;
}

/// The rows of a test that holds for annotation and blackboard.
inline void drawingFormRows() {
    QTest::addColumn<bool>("blackboard");
    QTest::newRow("annotation") << false;
    QTest::newRow("blackboard") << true;
}

/// Everything that was posted, each without what does not matter for its type.
inline QStringList told(const vexa::RecordingBackend &session) {
    QStringList all;
    for (const vexa::InputEvent &event : session.posts())
        if (event.type == kCGEventKeyDown || event.type == kCGEventKeyUp)
            all += QStringLiteral("%1 key %2 flags %3")
                       .arg(event.type == kCGEventKeyDown ? "down" : "up")
                       .arg(event.keyCode)
                       .arg(event.flags);
        else
            all += QStringLiteral("pointer %1 at %2,%3").arg(event.type).arg(event.x).arg(event.y);
    return all;
}
