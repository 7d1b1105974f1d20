// SPDX-License-Identifier: MIT
#include "platform/x11/activation/UserRequests.h"

#include "platform/Activation.h"

#include <QCoreApplication>
#include <QEvent>
#include <QX11Info>

namespace vexa::platform {

void showPanelForUser() {
    // The user's click or key went to another program. Without a fresh user time, focus stealing prevention
    // would keep this window in the background.
    if (QX11Info::isPlatformX11())
        QX11Info::setAppUserTime(QX11Info::getTimestamp());
    activateWindow();
}

void quitForUser() {
    QCoreApplication::postEvent(QCoreApplication::instance(), new QEvent(QEvent::Quit));
}

} // namespace vexa::platform
