// SPDX-License-Identifier: MIT
#include "app/FocusInSight.h"
#include "app/MainWindow.h"
#include "app/PointerInMovedWindow.h"
#include "app/QuickViews.h"
#include "app/Shell.h"
#include "platform/AutoStart.h"
#include "settings/SettingsTable.h"
#include "settings/ZrToolXmlClass.h"
#include "ui_MainWindow.h"

#include <QMetaObject>
#include <QQmlContext>
#include <QQuickItem>

#include <utility>

using vexa::ViewMessage;
using Settings = ZrToolXmlClass;

// The window as the host of the settings view: what it sends to the view, and what it does with the view's
// messages.

namespace {

constexpr int refillDelay = 200; // milliseconds

} // namespace

void MainWindow::loadView() {
    vexa::loadView(*m_ui->quickWidget, QStringLiteral("qrc:/MainWindow.qml"));
    m_viewRoot = m_ui->quickWidget->rootObject();
    m_ui->quickWidget->setFocus();
    new vexa::PointerInMovedWindow(*m_ui->quickWidget);
    new vexa::FocusInSight(*m_ui->quickWidget);
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
    m_qmlInitTimer.stop();
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
        m_qmlInitTimer.start(refillDelay, this);
    } else if (message == ViewMessage::Key2P || message == ViewMessage::Key3P ||
               message == ViewMessage::Key4C) {
        m_chords.arm();
    }
}

void MainWindow::changeAutoStart(int value) {
    const bool enable = value != 0;
    // One script at a time: a change that arrives while one runs counts as failed.
    const bool first = !std::exchange(m_changingAutoStart, true);
    const bool done =
        first && vexa::runInShell(vexa::platform::autoStartCommand(enable), vexa::platform::autoStartLimit());
    if (first)
        m_changingAutoStart = false;
    if (done)
        Settings::AutoStart = value;
    // The view already shows the state that it asked for; this tells it the actual one.
    const QVariant note = done ? QVariant(value) : QVariant(!enable);
    SetValue(m_viewRoot, int(ViewMessage::AutoStart), Settings::AutoStart, note);
}
