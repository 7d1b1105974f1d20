// SPDX-License-Identifier: MIT
#include "e2e/XServer.h"

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

XServer::~XServer() {
    m_process.terminate();
    m_process.waitForFinished(-1);
}

void XServer::kill() {
    m_process.kill();
    m_process.waitForFinished(-1);
}

} // namespace e2e
