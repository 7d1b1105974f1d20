// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

namespace e2e {

/// One more X server beside the test's own, for a program that is to see a special one. Ends with this
/// object.
class XServer {
public:
    explicit XServer(const QStringList &arguments = {});
    ~XServer();

    /// For the variable DISPLAY; empty when no server came up.
    QString display() const { return m_display; }

    /// Ends it at once, as a crash does.
    void kill();

private:
    QProcess m_process;
    QString m_display;
};

} // namespace e2e
