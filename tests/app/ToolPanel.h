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

#include <QApplication>
#include <QPushButton>
#include <QtTest>

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

    /// The windows of that kind that are on the screen.
    template<typename Tool> static QList<Tool *> open() {
        QList<Tool *> found;
        for (QWidget *widget : QApplication::topLevelWidgets())
            if (auto *tool = qobject_cast<Tool *>(widget); tool && tool->isVisible())
                found += tool;
        return found;
    }
    static int openHeldTools() {
        return open<LightPen>().size() + open<Magnifie>().size() + open<Spolight2>().size();
    }
    /// One of the held tools that are open.
    static QWidget *heldTool() {
        if (!open<LightPen>().isEmpty())
            return open<LightPen>().constFirst();
        if (!open<Magnifie>().isEmpty())
            return open<Magnifie>().constFirst();
        return open<Spolight2>().constFirst();
    }
    static bool nothingOpen() {
        return openHeldTools() == 0 && open<PizhuForm>().isEmpty() && open<blackBoardform>().isEmpty();
    }
    /// Every object of a tool, also of one that is about to go.
    static int objects() {
        int count = 0;
        for (QWidget *widget : QApplication::topLevelWidgets())
            count += qobject_cast<LightPen *>(widget) || qobject_cast<Magnifie *>(widget) ||
                     qobject_cast<Spolight2 *>(widget) || qobject_cast<PizhuForm *>(widget) ||
                     qobject_cast<blackBoardform *>(widget);
        return count;
    }

    /// A click on a held tool: its release dismisses it.
    static void click(QWidget *tool) { QTest::mouseClick(tool, Qt::LeftButton, {}, QPoint(300, 300)); }
    /// A press on the exit button of annotation or blackboard.
    static void pressExit(QWidget *form) {
        QTest::mousePress(form->findChild<QPushButton *>(QStringLiteral("pushButton")), Qt::LeftButton);
    }
};

/// A posted event without what does not matter for its type.
inline QString told(const vexa::InputEvent &event) {
    if (event.type == 10 || event.type == 11)
        return QStringLiteral("%1 key %2 flags %3")
            .arg(event.type == 10 ? QStringLiteral("down") : QStringLiteral("up"))
            .arg(event.keyCode)
            .arg(event.flags);
    return QStringLiteral("pointer %1 at %2,%3").arg(event.type).arg(event.x).arg(event.y);
}

/// Everything that was posted.
inline QStringList told(const vexa::RecordingBackend &session) {
    QStringList all;
    for (const vexa::InputEvent &event : session.posts())
        all += told(event);
    return all;
}
