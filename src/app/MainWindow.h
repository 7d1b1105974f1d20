// SPDX-License-Identifier: MIT
#pragma once

#include "app/AnnouncedShot.h"
#include "app/Language.h"
#include "app/MemoryReturn.h"
#include "app/OpenTools.h"
#include "app/PageNavigation.h"
#include "app/PenChords.h"
#include "app/PointerFence.h"
#include "app/Screenshots.h"
#include "app/WindowDrag.h"

#include <QBasicTimer>
#include <QMainWindow>
#include <QVariant>

#include <memory>

class CKeyboardHandler;
class PromptWindow;

namespace Ui {
class MainWindow;
}

/// The settings panel, and behind it the one place where the pen's keys become actions. It hosts the settings
/// view, stores and saves what the view reports, and carries out what the chords ask for. Closing only hides
/// it. GUI thread only. No failure is shown to the user.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);

    /// Waits for screenshots still to be written; closes every tool that is open.
    ~MainWindow() override;

    /// Reads the settings again and shows them all in the view.
    void Qml_Init();

    /// Switches the interface to a vexa::InterfaceLanguage. Any other number leaves the source texts, which
    /// are Simplified Chinese.
    void changeLanguage(int language);

    /// Calls the view's function "setvalue". Without a view the message is lost.
    void SetValue(QObject *root, const QVariant &id, const QVariant &var1, const QVariant &var2);

    /// Connects the window to the session's input. The handler is not owned and outlives the window.
    void SetKeyboardClass(CKeyboardHandler *handler);

    /// Makes the directory with all missing parents, as far as possible, and returns its path.
    QString mkMutiDir(const QString &path);

    /// Saves what the primary screen shows now as a file on the desktop.
    void FullScreenShot();

    /// Runs a vexa::KeyAction; any other number does nothing.
    void LongPressEvent(int action);

    /// Starts the slide show, or ends it when it is believed to run.
    void SetPptFullScreen();

signals:
    /// Closes every held tool.
    void signalExitWindow();

public slots:
    void SwitchPage(Page_Num page);
    void AddPageHistory(Page_Num page);
    void ClickSetButton();
    void ClickHelpButton();
    void ClickBackButton();
    void ClickCloseButton();
    /// Opens or closes the annotation.
    void ClickButton();
    /// Opens or closes the blackboard.
    void ClickBlackButton();
    void ClickSpolightButton();
    void ClickMagnifierButton();
    void ClickLightPenButton();
    void RecvKeboardMessage(int key, int state);
    void RecvGlobaleMouseMessage(int event, int x, int y);
    /// A tool of the kind that the vexa::ClosingReport names has closed.
    void RecvWindowMessage(int which);
    /// The user drags the view: moves the window by (x, y) points. The other two are not used.
    void recvQmlMoveWindow(int x, int y, int startx, int starty);
    /// A vexa::ViewMessage; any other number does nothing. For the start at login this returns when its
    /// script has ended, after five seconds at most; events are handled meanwhile.
    void recvQmlMessage1(int id, int var1, int var2);

protected:
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void setUpWindow();
    void loadView();
    void carryOut(vexa::PenCommand command);
    void openHeldTool();
    void makePrompts();
    void changeAutoStart(int value);
    void refocusSoon();
    void cancelRefocus();
    void refocusSlideShow();
    void exitHeldTool();
    void playOrPause();
    void withdraw();

    std::unique_ptr<Ui::MainWindow> m_ui;
    vexa::PageNavigation m_pages;
    vexa::WindowDrag m_drag;
    vexa::Language m_language;
    vexa::PenChords m_chords;
    vexa::MemoryReturn m_memoryReturn;
    vexa::OpenTools m_tools;
    vexa::Screenshots m_screenshots;
    std::unique_ptr<PromptWindow> m_screenshotPrompt;
    std::unique_ptr<PromptWindow> m_startPrompt;
    std::unique_ptr<vexa::AnnouncedShot> m_announcedShot;
    QObject *m_viewRoot = nullptr; ///< null when the view could not be loaded
    bool m_followPointer = false;  ///< a held tool is open
    vexa::PointerFence m_fence;
    bool m_changingAutoStart = false;
    QBasicTimer m_qmlInitTimer;
    QBasicTimer m_toolExitTimer; ///< never started, on purpose; its handler is kept
    QBasicTimer m_refocusTimer;
    QBasicTimer m_slideShowTimer;
    QBasicTimer m_playPauseTimer;
};
