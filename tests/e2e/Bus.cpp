// SPDX-License-Identifier: MIT
#include "e2e/Bus.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QFile>

#include <csignal>

namespace e2e {

namespace {

const QString programName = QStringLiteral("example.vexa.VexaOrbilo");

} // namespace

Bus::Bus() = default;

Bus::~Bus() {
    kill();
}

QString Bus::address() const {
    return QStringLiteral("unix:path=") + m_folder.filePath(QStringLiteral("bus"));
}

bool Bus::start() {
    ++m_starts;
    QFile::remove(m_folder.filePath(QStringLiteral("bus")));
    m_process.start(QStringLiteral("dbus-daemon"),
                    {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
                     QStringLiteral("--print-address"), QStringLiteral("--address=") + address()});
    return m_process.waitForReadyRead(60000);
}

void Bus::kill() {
    QDBusConnection::disconnectFromBus(QString::number(m_starts));
    m_process.kill();
    m_process.waitForFinished(-1);
}

void Bus::freeze() {
    ::kill(static_cast<pid_t>(m_process.processId()), SIGSTOP);
}

void Bus::thaw() {
    ::kill(static_cast<pid_t>(m_process.processId()), SIGCONT);
}

QDBusConnection Bus::client() {
    return QDBusConnection::connectToBus(address(), QString::number(m_starts));
}

QString Bus::nameOwner() {
    return client().interface()->serviceOwner(programName);
}

QDBusPendingCall Bus::call(const QString &method, const QVariantList &arguments) {
    QDBusMessage message =
        QDBusMessage::createMethodCall(programName, QStringLiteral("/example/vexa/VexaOrbilo"),
                                       QStringLiteral("org.freedesktop.Application"), method);
    message.setArguments(arguments);
    return client().asyncCall(message);
}

} // namespace e2e
