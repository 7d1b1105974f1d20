// SPDX-License-Identifier: MIT
#pragma once

#include "e2e/Xcb.h"

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <vector>

namespace e2e {

/// One more X server beside the test's own, for a program that is to see a special one. Ends with this
/// object.
class XServer {
public:
    explicit XServer(const QStringList &arguments = {});
    ~XServer();

    /// For the variable DISPLAY; empty when no server came up.
    QString display() const { return m_display; }

    /// Whether a window of this class is there, shown or not.
    bool hasWindowsOf(const QByteArray &windowClass) const;

    /// Ends it at once, as a crash does.
    void kill();

    /// Takes up all connections that the server can have, but that many. Call once.
    void leaveConnections(std::size_t free);

private:
    QProcess m_process;
    QString m_display;
    std::vector<xcb::Connection> m_taken;
};

} // namespace e2e
