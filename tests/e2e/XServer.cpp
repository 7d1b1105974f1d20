// SPDX-License-Identifier: MIT
#include "e2e/XServer.h"

#include <cstdlib>
#include <type_traits>
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

bool XServer::hasWindowsOf(const QByteArray &windowClass) const {
    const std::unique_ptr<xcb_connection_t, Disconnect> connection(
        xcb_connect(m_display.toLatin1().constData(), nullptr));
    const auto answered = [](auto *reply) {
        return std::unique_ptr<std::remove_pointer_t<decltype(reply)>, decltype(&std::free)>(reply,
                                                                                             &std::free);
    };
    xcb_connection_t *const xcb = connection.get();
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(xcb)).data->root;
    const auto tree = answered(xcb_query_tree_reply(xcb, xcb_query_tree(xcb, root), nullptr));
    for (int i = 0; tree && i < xcb_query_tree_children_length(tree.get()); ++i) {
        const xcb_window_t window = xcb_query_tree_children(tree.get())[i];
        const auto name = answered(xcb_get_property_reply(
            xcb, xcb_get_property(xcb, 0, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, 100), nullptr));
        if (name && QByteArray(static_cast<const char *>(xcb_get_property_value(name.get())),
                               xcb_get_property_value_length(name.get()))
                        .contains(windowClass))
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
