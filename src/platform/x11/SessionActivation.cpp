// SPDX-License-Identifier: MIT
#include "platform/Activation.h"
#include "platform/x11/ApplicationObject.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QFileInfo>

namespace vexa::platform {

namespace {

QString busName() {
    return QStringLiteral("example.vexa.VexaOrbilo");
}
QString objectPath() {
    return QStringLiteral("/example/vexa/VexaOrbilo");
}

enum class Claim {
    Ours,  ///< this process is the one that activations reach
    Taken, ///< another instance is
    NoBus,
};

/// Connecting where there is no bus would start one, and leave it behind when the program ends.
bool hasSessionBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

/// Makes this process the one that activations reach, for as long as the application object lives.
Claim claimName() {
    if (!hasSessionBus())
        return Claim::NoBus;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return Claim::NoBus;
    if (bus.objectRegisteredAt(objectPath()))
        return Claim::Ours;
    // First the object, then the name: whoever finds the name must find the object too.
    auto *const object = new ApplicationObject(QCoreApplication::instance());
    bus.registerObject(objectPath(), object, QDBusConnection::ExportAllSlots);
    if (bus.registerService(busName()))
        return Claim::Ours;
    delete object;
    return Claim::Taken;
}

/// True when the other instance has answered. An instance that is gone by now, or does not know what it is
/// asked, has not.
bool activateOther() {
    QDBusMessage activate = QDBusMessage::createMethodCall(
        busName(), objectPath(), QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"));
    activate << QVariantMap();
    return QDBusConnection::sessionBus().call(activate).type() == QDBusMessage::ReplyMessage;
}

} // namespace

bool forwardActivation() {
    return claimName() == Claim::Taken && activateOther();
}

} // namespace vexa::platform

void setupDockClickHandler() {
    vexa::platform::claimName();
}
