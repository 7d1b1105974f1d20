// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <QVariantList>

namespace e2e {

/// A session bus of its own at an address that stays the same, which can freeze, die and come back. Ends with
/// this object.
class Bus {
public:
    Bus();
    ~Bus();

    /// For the variable DBUS_SESSION_BUS_ADDRESS.
    QString address() const;

    bool start();
    void kill();
    void freeze();
    void thaw();

    /// Whether somebody has the program's name on it.
    bool knowsTheProgram() { return !nameOwner().isEmpty(); }
    /// Whose connection has the program's name; empty when nobody's has.
    QString nameOwner();

    /// Calls a method of org.freedesktop.Application of the program, without waiting for its answer.
    QDBusPendingCall call(const QString &method, const QVariantList &arguments);

private:
    QDBusConnection client();

    QTemporaryDir m_folder;
    QProcess m_process;
    int m_starts = 0; ///< each needs a connection of its own
};

} // namespace e2e
