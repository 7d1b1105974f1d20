// SPDX-License-Identifier: MIT
#include "app/MainWindow.h"

#include "app/OnScreen.h"
#include "input/CKeyboardHandler.h"
#include "input/CKeyboardListenerMac.h"
#include "overlays/PromptWindow.h"
#include "platform/ProgramIcon.h"
#include "platform/Screens.h"
#include "platform/Session.h"
#include "platform/quartz/Quartz.h"
#include "settings/ZrToolXmlClass.h"
#include "ui_MainWindow.h"

#include <QCloseEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QMetaObject>
#include <QScreen>
#include <QTimerEvent>

using vexa::HeldToolChoice;
using vexa::KeyAction;
using vexa::PenCommand;
using Settings = ZrToolXmlClass;
using SyntheticInput = CKeyboardListenerMac;

namespace {

// Milliseconds.
constexpr int withdrawDelay = 500;
constexpr int keyActionDelay = 200;
constexpr int refocusDelay = 1000;

std::unique_ptr<Ui::MainWindow> formOf(MainWindow &window) {
    auto form = std::make_unique<Ui::MainWindow>();
    form->setupUi(&window);
    return form;
}

} // namespace

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
    , m_ui(formOf(*this))
    , m_pages(*this, *m_ui->stackedWidget, *m_ui->BACKButton)
    , m_drag(*this) {
    Settings::ZrXmlRead();
    connect(m_ui->CloseBtn, &QPushButton::clicked, this, &MainWindow::ClickCloseButton);
    connect(m_ui->MinBtn, &QPushButton::clicked, this, &MainWindow::ClickCloseButton);
    connect(m_ui->BACKButton, &QPushButton::clicked, this, &MainWindow::ClickBackButton);
    connect(m_ui->SetBtn, &QPushButton::clicked, this, &MainWindow::ClickSetButton);
    connect(this, &MainWindow::signalExitWindow, &m_tools, &vexa::OpenTools::leave);
    connect(&m_tools, &vexa::OpenTools::reported, this, &MainWindow::RecvWindowMessage);
    connect(&m_tools, &vexa::OpenTools::formerReported, this, &MainWindow::refocusSoon);
    connect(&m_tools, &vexa::OpenTools::allGone, &m_memoryReturn, &vexa::MemoryReturn::soon);
    vexa::Language::chooseFont(Settings::Language);
    setUpWindow();
    loadView();
    makePrompts();

    startTimer(withdrawDelay);
    if (!QCoreApplication::testAttribute(Qt::AA_EnableHighDpiScaling))
        QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    changeLanguage(Settings::Language);
}

MainWindow::~MainWindow() = default;

void MainWindow::setUpWindow() {
    m_ui->label->setFont(QFont(QStringLiteral("Arial"), 30, QFont::Bold));
    QPalette pictured = palette();
    pictured.setBrush(QPalette::Window, QBrush(QPixmap(QStringLiteral(":/bg.png"))));
    setPalette(pictured);
    setAutoFillBackground(true);
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setWindowIcon(vexa::platform::programIcon());
    setFixedSize(size()); // tiling window managers leave a window of fixed size floating
    new vexa::OnScreen(*this);
    // With an explicit position the window returns to the same place when it is hidden and shown again.
    move(QGuiApplication::primaryScreen()->availableGeometry().center() - rect().center());
}

void MainWindow::makePrompts() {
    const auto unseenPrompt = [](const QString &text) {
        auto prompt = std::make_unique<PromptWindow>(nullptr);
        prompt->setText(text);
        prompt->setMode(0);
        prompt->showWithTransperent();
        return prompt;
    };
    m_screenshotPrompt = unseenPrompt(tr("截屏已保存"));
    m_startPrompt = unseenPrompt(tr("Vexa Orbilo Setting"));
    m_announcedShot =
        std::make_unique<vexa::AnnouncedShot>(*m_screenshotPrompt, [this] { FullScreenShot(); });
}

void MainWindow::changeLanguage(int language) {
    m_language.change(language);
    m_ui->retranslateUi(this);
}

void MainWindow::SetKeyboardClass(CKeyboardHandler *handler) {
    connect(handler, &CKeyboardHandler::MysignalKeyboardMessage, this, &MainWindow::RecvKeboardMessage);
    connect(handler, &CKeyboardHandler::MysignalMouseMessage, this, &MainWindow::RecvGlobaleMouseMessage);
}

QString MainWindow::mkMutiDir(const QString &path) {
    return vexa::Screenshots::makeFolder(path);
}

void MainWindow::FullScreenShot() {
    m_screenshots.take();
    m_memoryReturn.soon();
}

void MainWindow::SetPptFullScreen() {
    SyntheticInput::SetPPTFullScreen();
}

// Pages

void MainWindow::SwitchPage(Page_Num page) {
    m_pages.show(page);
}

void MainWindow::AddPageHistory(Page_Num page) {
    m_pages.remember(page);
}

void MainWindow::ClickSetButton() {
    m_pages.showSettings();
}

void MainWindow::ClickHelpButton() {}

void MainWindow::ClickBackButton() {
    m_pages.goBack();
    Settings::ZrXmlWrite(); // also without history: leaving a page saves what it has changed
}

void MainWindow::ClickCloseButton() {
    hide();
}

// Tools

void MainWindow::ClickButton() {
    if (m_tools.annotationOpen()) {
        m_tools.closeAnnotation();
        refocusSoon();
    } else {
        cancelRefocus();
        m_tools.openAnnotation();
    }
}

void MainWindow::ClickBlackButton() {
    if (m_tools.blackboardOpen()) {
        m_tools.closeBlackboard();
        refocusSoon();
    } else {
        cancelRefocus();
        m_tools.openBlackboard();
    }
}

void MainWindow::ClickSpolightButton() {
    m_tools.openSpotlight();
}

void MainWindow::ClickMagnifierButton() {
    m_tools.openMagnifier();
}

void MainWindow::ClickLightPenButton() {
    m_tools.openLaser();
}

void MainWindow::RecvWindowMessage(int which) {
    if (m_tools.forget(vexa::ClosingReport(which)))
        refocusSoon();
}

// The pen

void MainWindow::RecvKeboardMessage(int key, int state) {
    const auto commands = m_chords.receive(
        key, state, {SyntheticInput::EnterPPT, m_tools.annotationOpen(), m_tools.blackboardOpen()});
    for (const PenCommand command : commands)
        carryOut(command);
}

void MainWindow::carryOut(PenCommand command) {
    switch (command) {
    case PenCommand::CloseHeldTools:
        m_followPointer = false;
        emit signalExitWindow();
        break;
    case PenCommand::CancelRefocus:
        cancelRefocus();
        break;
    case PenCommand::OpenHeldTool:
        m_followPointer = true;
        m_fence.raise(vexa::platform::isPointerOnAnotherScreen());
        openHeldTool();
        break;
    case PenCommand::StepAnnotationColour:
        m_tools.stepAnnotationColour();
        break;
    case PenCommand::StepBlackboardColour:
        m_tools.stepBlackboardColour();
        break;
    case PenCommand::ToggleAnnotation:
        ClickButton();
        break;
    case PenCommand::RunKey2Action:
        LongPressEvent(Settings::Key2P);
        break;
    case PenCommand::RunKey3Action:
        LongPressEvent(Settings::Key3P);
        break;
    case PenCommand::RunKey4Action:
        LongPressEvent(Settings::Key4C);
        break;
    }
}

void MainWindow::openHeldTool() {
    switch (HeldToolChoice(Settings::Key4P)) {
    case HeldToolChoice::Spotlight:
        ClickSpolightButton();
        break;
    case HeldToolChoice::Magnifier:
        ClickMagnifierButton();
        break;
    case HeldToolChoice::Laser:
        ClickLightPenButton();
        break;
    }
}

void MainWindow::LongPressEvent(int action) {
    switch (KeyAction(action)) {
    case KeyAction::SlideShow:
        m_slideShowTimer.start(keyActionDelay, this);
        break;
    case KeyAction::PlayPause:
        m_playPauseTimer.start(keyActionDelay, this);
        break;
    case KeyAction::Blackboard:
        ClickBlackButton();
        break;
    case KeyAction::Screenshot:
        m_announcedShot->take();
        break;
    case KeyAction::None:
        break;
    }
}

void MainWindow::RecvGlobaleMouseMessage(int event, int x, int y) {
    // A tool that has closed, by a click for example, no longer confines the pointer.
    if (event != kCGEventMouseMoved || !m_followPointer || !m_tools.heldToolOpen())
        return;
    const QPoint pointer(x, y);
    const QPoint kept = vexa::withinMargin(pointer, QGuiApplication::primaryScreen()->size());
    const bool held = m_fence.holds(vexa::platform::isOnAnotherScreen(pointer));
    if (kept != pointer && held)
        SyntheticInput::SetMouseMove(kept.x(), kept.y());
    m_tools.moveHeldTool(HeldToolChoice(Settings::Key4P), kept.x(), kept.y());
}

// Events

void MainWindow::closeEvent(QCloseEvent *event) {
    hide();
    event->ignore();
}

void MainWindow::hideEvent(QHideEvent *event) {
    QMainWindow::hideEvent(event);
    m_memoryReturn.soon();
}

void MainWindow::changeEvent(QEvent *event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::LanguageChange || !m_screenshotPrompt)
        return;
    const auto setText = [this] { m_screenshotPrompt->setText(tr("截屏已保存")); };
    setText();
    // Queued as well: the prompt may get the same event after this window, and then sets its own text again.
    QMetaObject::invokeMethod(this, setText, Qt::QueuedConnection);
}

void MainWindow::mousePressEvent(QMouseEvent *event) {
    m_drag.press(*event);
}

void MainWindow::mouseMoveEvent(QMouseEvent *event) {
    m_drag.move(*event);
}

void MainWindow::mouseReleaseEvent(QMouseEvent *event) {
    m_drag.release(*event);
}

// Timers

void MainWindow::timerEvent(QTimerEvent *event) {
    struct Deferred {
        QBasicTimer MainWindow::*timer;
        void (MainWindow::*action)();
    };
    static constexpr Deferred deferredActions[] = {
        {&MainWindow::m_qmlInitTimer, &MainWindow::Qml_Init},
        {&MainWindow::m_toolExitTimer, &MainWindow::exitHeldTool},
        {&MainWindow::m_refocusTimer, &MainWindow::refocusSlideShow},
        {&MainWindow::m_slideShowTimer, &MainWindow::SetPptFullScreen},
        {&MainWindow::m_playPauseTimer, &MainWindow::playOrPause},
    };
    for (const Deferred &deferred : deferredActions) {
        QBasicTimer &timer = this->*deferred.timer;
        if (!timer.isActive() || timer.timerId() != event->timerId())
            continue;
        timer.stop();
        (this->*deferred.action)();
        return;
    }
    killTimer(event->timerId());
    withdraw();
}

void MainWindow::refocusSoon() {
    if (SyntheticInput::EnterPPT)
        m_refocusTimer.start(refocusDelay, this);
}

void MainWindow::cancelRefocus() {
    if (SyntheticInput::EnterPPT)
        m_refocusTimer.stop();
}

void MainWindow::refocusSlideShow() {
    const QScreen *screen = QGuiApplication::primaryScreen();
    const QPoint pointer = QCursor::pos() - screen->geometry().topLeft();
    SyntheticInput::SetMouseClick(screen->size().width() - 10, screen->size().height() - 10);
    SyntheticInput::SetMouseMove(pointer.x(), pointer.y());
    SyntheticInput::SetPageUp();
}

void MainWindow::exitHeldTool() {
    m_tools.exitHeldTool(HeldToolChoice(Settings::Key4P));
    m_tools.forgetHeldTools();
}

void MainWindow::playOrPause() {
    SyntheticInput::SetPlayOrPause();
}

void MainWindow::withdraw() {
    hide();
    if (vexa::platform::penOutOfReach())
        m_startPrompt->setText(tr("Wayland 下无法用笔"));
    m_startPrompt->showWithTimer2();
}
