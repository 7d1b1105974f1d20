// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>
#include <QVariant>

namespace vexa::platform {

/// What a launcher or a second start finds of this program on the session bus. GUI thread.
class ApplicationObject : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    using QObject::QObject;

    Q_SLOT void Activate(const QVariantMap &platformData);
    /// The program opens no files: being asked to is being activated.
    Q_SLOT void Open(const QStringList &uris, const QVariantMap &platformData);
    /// There are no actions beside the activation itself.
    Q_SLOT void ActivateAction(const QString &name, const QVariantList &parameters,
                               const QVariantMap &platformData);
};

} // namespace vexa::platform
