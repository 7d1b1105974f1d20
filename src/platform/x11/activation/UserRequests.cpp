// SPDX-License-Identifier: MIT
#include "platform/x11/activation/UserRequests.h"

#include "platform/Activation.h"

#include <QCoreApplication>
#include <QEvent>
#include <QX11Info>

namespace vexa::platform {

void showPanelForUser() {
    // The user's click or key was elsewhere. Window managers keep a window without a fresh time of user input
    // in the background, as one that steals the focus.
    if (QX11Info::isPlatformX11())
        QX11Info::setAppUserTime(QX11Info::getTimestamp());
    activateWindow();
}

void quitForUser() {
    QCoreApplication::postEvent(QCoreApplication::instance(), new QEvent(QEvent::Quit));
}

} // namespace vexa::platform
