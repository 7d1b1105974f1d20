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

void XServer::leaveConnections(std::size_t free) {
    const QByteArray display = m_display.toLatin1();
    while (m_taken.empty() || !xcb_connection_has_error(m_taken.back().get()))
        m_taken.emplace_back(xcb_connect(display.constData(), nullptr));
    m_taken.resize(m_taken.size() - 1 - free); // the last one was refused
}

bool XServer::hasWindowsOf(const QByteArray &windowClass) const {
    const xcb::Connection connection(xcb_connect(m_display.toLatin1().constData(), nullptr));
    xcb_connection_t *const server = connection.get();
    const auto tree =
        xcb::owned(xcb_query_tree_reply(server, xcb_query_tree(server, xcb::root(server)), nullptr));
    for (int i = 0; tree && i < xcb_query_tree_children_length(tree.get()); ++i) {
        const xcb_window_t window = xcb_query_tree_children(tree.get())[i];
        if (xcb::property(server, window, XCB_ATOM_WM_CLASS).contains(windowClass))
            return true;
    }
    return false;
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
