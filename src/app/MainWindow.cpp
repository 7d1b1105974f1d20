// SPDX-License-Identifier: MIT
#include "app/MainWindow.h"

#include "app/QuickViews.h"
#include "input/CKeyboardHandler.h"
#include "input/CKeyboardListenerMac.h"
#include "overlays/PromptWindow.h"
#include "platform/AutoStart.h"
#include "platform/Screens.h"
#include "platform/Session.h"
#include "platform/quartz/Quartz.h"
#include "settings/SettingsTable.h"
#include "settings/ZrToolXmlClass.h"
#include "ui_MainWindow.h"

#include <QCloseEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QMetaObject>
#include <QQmlContext>
#include <QQuickItem>
#include <QScreen>
#include <QTimer>
#include <QTimerEvent>
#include <cstdlib>

using vexa::HeldToolChoice;
using vexa::KeyAction;
using vexa::PenCommand;
using vexa::ViewMessage;
using Settings = ZrToolXmlClass;
using SyntheticInput = CKeyboardListenerMac;

namespace {

// Milliseconds.
constexpr int withdrawDelay = 500;
constexpr int refillDelay = 200;
constexpr int keyActionDelay = 200;
constexpr int refocusDelay = 1000;
/// What the other windows need to draw again what a prompt has covered.
constexpr int uncoverDelay = 100;

std::unique_ptr<Ui::MainWindow> formOf(MainWindow &window) {
    auto form = std::make_unique<Ui::MainWindow>();
    form->setupUi(&window);
    return form;
}

/// The shell's way to say that a script did what it was asked for.
bool runInShell(const QString &command) {
    return std::system(command.toLocal8Bit().constData()) == 0;
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
    vexa::Language::chooseFace(Settings::Language);
    dressWindow();
    loadView();

    m_screenshotPrompt = std::make_unique<PromptWindow>(nullptr);
    m_screenshotPrompt->setText(tr("截屏已保存"));
    m_screenshotPrompt->setMode(0);
    m_screenshotPrompt->showWithTransperent();
    m_startPrompt = std::make_unique<PromptWindow>(nullptr);
    m_startPrompt->setText(tr("Vexa Orbilo Setting"));
    m_startPrompt->setMode(0);
    m_startPrompt->showWithTransperent();

    startTimer(withdrawDelay);
    if (!QCoreApplication::testAttribute(Qt::AA_EnableHighDpiScaling))
        QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    changeLanguage(Settings::Language);
}

MainWindow::~MainWindow() = default;

void MainWindow::dressWindow() {
    m_ui->label->setFont(QFont(QStringLiteral("Arial"), 30, QFont::Bold));
    QPalette pictured = palette();
    pictured.setBrush(QPalette::Window, QBrush(QPixmap(QStringLiteral(":/bg.png"))));
    setPalette(pictured);
    setAutoFillBackground(true);
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setFixedSize(size()); // tiling window managers let a window float whose size cannot change
    // A window that says where it stands stays there when it is hidden and shown again.
    move(QGuiApplication::primaryScreen()->availableGeometry().center() - rect().center());
}

void MainWindow::loadView() {
    vexa::loadView(*m_ui->quickWidget, QStringLiteral("qrc:/MainWindow.qml"));
    m_viewRoot = m_ui->quickWidget->rootObject();
    m_ui->quickWidget->rootContext()->setContextProperty(QStringLiteral("mainwindow"), this);
    if (m_viewRoot) {
        connect(m_viewRoot, SIGNAL(qmlSignal(int, int, int, int)), this,
                SLOT(recvQmlMoveWindow(int, int, int, int)));
        connect(m_viewRoot, SIGNAL(qmlSignal1(int, int, int)), this, SLOT(recvQmlMessage1(int, int, int)));
    }
    Qml_Init();
    m_chords.arm();
}

void MainWindow::Qml_Init() {
    stopTimer(m_qmlInitTimer);
    Settings::ZrXmlRead();
    for (int id = int(vexa::firstSettingMessage); id <= int(vexa::lastSettingMessage); ++id)
        SetValue(m_viewRoot, id, *vexa::settingOfMessage(ViewMessage(id))->value, 0);
}

void MainWindow::SetValue(QObject *root, const QVariant &id, const QVariant &var1, const QVariant &var2) {
    if (!root)
        return;
    QVariant ignored;
    QMetaObject::invokeMethod(root, "setvalue", Q_RETURN_ARG(QVariant, ignored), Q_ARG(QVariant, id),
                              Q_ARG(QVariant, var1), Q_ARG(QVariant, var2));
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
    Settings::ZrXmlWrite(); // always: whatever a page has changed is kept when it is left
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
        startTimerOnce(m_slideShowTimer, keyActionDelay);
        break;
    case KeyAction::PlayPause:
        startTimerOnce(m_playPauseTimer, keyActionDelay);
        break;
    case KeyAction::Blackboard:
        ClickBlackButton();
        break;
    case KeyAction::Screenshot:
        takeAnnouncedShot();
        break;
    case KeyAction::None:
        break;
    }
}

void MainWindow::takeAnnouncedShot() {
    if (m_shotDue)
        return; // this one will do: it is taken later than asked for
    const auto shoot = [this] {
        m_shotDue = false;
        FullScreenShot();
        m_screenshotPrompt->showWithTimer();
    };
    // The prompt must not stand in the picture: neither this shot's, which therefore comes after it, nor one
    // that still fades from the shot before.
    if (m_screenshotPrompt->windowOpacity() <= 0.0) {
        shoot();
        return;
    }
    m_shotDue = true;
    m_screenshotPrompt->hideWindow();
    QTimer::singleShot(uncoverDelay, this, shoot);
}

void MainWindow::RecvGlobaleMouseMessage(int event, int x, int y) {
    // A tool that is gone, dismissed by a click for example, keeps the pointer in no longer.
    if (event != kCGEventMouseMoved || !m_followPointer || !m_tools.heldToolOpen())
        return;
    const QPoint pointer(x, y);
    const QPoint kept = vexa::withinMargin(pointer, QGuiApplication::primaryScreen()->size());
    const bool held = m_fence.holds(vexa::platform::isOnAnotherScreen(pointer));
    if (kept != pointer && held)
        SyntheticInput::SetMouseMove(kept.x(), kept.y());
    m_tools.moveHeldTool(HeldToolChoice(Settings::Key4P), kept.x(), kept.y());
}

// The view

void MainWindow::recvQmlMoveWindow(int x, int y, int /*startx*/, int /*starty*/) {
    move(pos() + QPoint(x, y));
}

void MainWindow::recvQmlMessage1(int id, int var1, int /*var2*/) {
    const auto message = ViewMessage(id);
    if (message == ViewMessage::HidePanel)
        hide();
    const vexa::Setting *setting = vexa::settingOfMessage(message);
    if (!setting)
        return;
    if (message == ViewMessage::AutoStart)
        changeAutoStart(var1);
    else
        *setting->value = var1;
    Settings::ZrXmlWrite();

    if (message == ViewMessage::Language) {
        changeLanguage(var1);
        startTimerOnce(m_qmlInitTimer, refillDelay);
    } else if (message == ViewMessage::Key2P || message == ViewMessage::Key3P ||
               message == ViewMessage::Key4C) {
        m_chords.arm();
    }
}

void MainWindow::changeAutoStart(int value) {
    const bool enable = value != 0;
    const bool done = runInShell(vexa::platform::autoStartCommand(enable));
    if (done)
        Settings::AutoStart = value;
    // The view shows what it asked for already: it learns what came of it.
    const QVariant note = done ? QVariant(value) : QVariant(!enable);
    SetValue(m_viewRoot, int(ViewMessage::AutoStart), Settings::AutoStart, note);
}

// Events

void MainWindow::closeEvent(QCloseEvent *event) {
    hide();
    event->ignore();
}

void MainWindow::changeEvent(QEvent *event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    // Queued, because the prompt may only now be about to translate itself, back to its own text.
    QMetaObject::invokeMethod(
        this, [this] { m_screenshotPrompt->setText(tr("截屏已保存")); }, Qt::QueuedConnection);
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
        int MainWindow::*timer;
        void (MainWindow::*action)();
    };
    static constexpr Deferred deferredActions[] = {
        {&MainWindow::m_qmlInitTimer, &MainWindow::Qml_Init},
        {&MainWindow::m_toolExitTimer, &MainWindow::exitHeldTool},
        {&MainWindow::m_refocusTimer, &MainWindow::refocusSlideShow},
        {&MainWindow::m_slideShowTimer, &MainWindow::SetPptFullScreen},
        {&MainWindow::m_playPauseTimer, &MainWindow::playOrPause},
    };
    killTimer(event->timerId());
    for (const Deferred &deferred : deferredActions) {
        if (this->*deferred.timer != event->timerId())
            continue;
        this->*deferred.timer = -1;
        (this->*deferred.action)();
        return;
    }
    withdraw();
}

void MainWindow::startTimerOnce(int &id, int milliseconds) {
    stopTimer(id);
    id = startTimer(milliseconds);
}

void MainWindow::stopTimer(int &id) {
    if (id != -1)
        killTimer(id);
    id = -1;
}

void MainWindow::refocusSoon() {
    if (SyntheticInput::EnterPPT)
        startTimerOnce(m_refocusTimer, refocusDelay);
}

void MainWindow::cancelRefocus() {
    if (SyntheticInput::EnterPPT)
        stopTimer(m_refocusTimer);
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
