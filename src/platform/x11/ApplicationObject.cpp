// SPDX-License-Identifier: MIT
#include "platform/x11/ApplicationObject.h"

#include "platform/Activation.h"

#include <QX11Info>

namespace vexa::platform {

void ApplicationObject::Activate(const QVariantMap &) {
    // The user has just asked for the window elsewhere. Without a fresh time of his, window managers take it
    // for a window that pushes itself forward and keep it in the background.
    if (QX11Info::isPlatformX11())
        QX11Info::setAppUserTime(QX11Info::getTimestamp());
    activateWindow();
}

void ApplicationObject::Open(const QStringList &, const QVariantMap &platformData) {
    Activate(platformData);
}

void ApplicationObject::ActivateAction(const QString &, const QVariantList &, const QVariantMap &) {}

} // namespace vexa::platform
