// SPDX-License-Identifier: MIT
#include "e2e/Manager.h"

#include "e2e/Xcb.h"
#include "support/Patience.h"

#include <QTest>
#include <QX11Info>

namespace e2e {

namespace {

/// Only one client may ask to be asked before windows are shown.
bool somebodyPlacesWindows(xcb_connection_t *connection) {
    const auto request = xcb_get_window_attributes(connection, xcb::root(connection));
    const auto reply = xcb::owned(xcb_get_window_attributes_reply(connection, request, nullptr));
    return reply && (reply->all_event_masks & XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT) != 0;
}

bool somebodyComposites(xcb_connection_t *connection) {
    const auto request = xcb_get_selection_owner(connection, xcb::atom(connection, "_NET_WM_CM_S0"));
    const auto reply = xcb::owned(xcb_get_selection_owner_reply(connection, request, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

} // namespace

bool Manager::isAtWork() const {
    xcb_connection_t *const connection = QX11Info::connection();
    return m_kind == Kind::OfWindows ? somebodyPlacesWindows(connection) : somebodyComposites(connection);
}

bool Manager::start() {
    if (m_kind == Kind::OfWindows)
        m_process.start(QStringLiteral("openbox"), {QStringLiteral("--sm-disable")});
    else
        m_process.start(QStringLiteral("picom"), {QStringLiteral("--backend"), QStringLiteral("xrender"),
                                                  QStringLiteral("--config"), QStringLiteral("/dev/null")});
    return QTest::qWaitFor([this] { return isAtWork(); }, vexa::test::patience);
}

bool Manager::kill() {
    m_process.kill();
    m_process.waitForFinished(-1);
    return QTest::qWaitFor([this] { return !isAtWork(); }, vexa::test::patience);
}

} // namespace e2e
