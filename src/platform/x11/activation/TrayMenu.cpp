// SPDX-License-Identifier: MIT
#include "platform/x11/activation/TrayMenu.h"

#include "platform/x11/activation/UserRequests.h"

#include <QCoreApplication>
#include <QEvent>

namespace vexa::platform {

TrayMenu::TrayMenu() : m_settings(addAction(QString())), m_quit(addAction(QString())) {
    connect(m_settings, &QAction::triggered, showPanelForUser);
    connect(m_quit, &QAction::triggered, quitForUser);
    retranslate();
}

/// What the toolkit has put on the bus for an action goes only when the action is taken out of the menu.
TrayMenu::~TrayMenu() {
    clear();
}

void TrayMenu::changeEvent(QEvent *event) {
    QMenu::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void TrayMenu::retranslate() {
    m_settings->setText(QCoreApplication::translate("TrayMenu", "设置"));
    m_quit->setText(QCoreApplication::translate("TrayMenu", "退出"));
}

} // namespace vexa::platform
