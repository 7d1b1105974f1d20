// SPDX-License-Identifier: MIT
#include "e2e/XServer.h"

#include <xcb/xcb.h>

namespace e2e {

XServer::XServer(const QStringList &arguments) {
    const QStringList usual{QStringLiteral("-displayfd"),  QStringLiteral("1"),
                            QStringLiteral("-screen"),     QStringLiteral("0"),
                            QStringLiteral("1280x800x24"), QStringLiteral("-nolisten"),
                            QStringLiteral("tcp"),         QStringLiteral("-noreset")};
    m_process.start(QStringLiteral("Xvfb"), usual + arguments);
    if (m_process.waitForReadyRead(60000))
        m_display = QLatin1Char(':') + QString::fromLatin1(m_process.readAllStandardOutput()).trimmed();
}

void XServer::Disconnect::operator()(xcb_connection_t *connection) const {
    xcb_disconnect(connection);
}

void XServer::leaveConnections(std::size_t free) {
    const QByteArray display = m_display.toLatin1();
    while (m_taken.empty() || !xcb_connection_has_error(m_taken.back().get()))
        m_taken.emplace_back(xcb_connect(display.constData(), nullptr));
    m_taken.resize(m_taken.size() - 1 - free); // the last one was refused
}

XServer::~XServer() {
    m_taken.clear();
    m_process.terminate();
    m_process.waitForFinished(-1);
}

void XServer::kill() {
    m_process.kill();
    m_process.waitForFinished(-1);
}

} // namespace e2e
