// SPDX-License-Identifier: MIT
#include "platform/x11/activation/TrayIcon.h"

#include "platform/ProgramIcon.h"
#include "platform/x11/activation/TrayMenu.h"
#include "platform/x11/activation/UserRequests.h"
#include "platform/x11/input/Connection.h"

#include <QCoreApplication>
#include <QTimer>
#include <QX11Info>

#include <xcb/xcb.h>

namespace vexa::platform {

namespace {

constexpr char watcher[] = "org.kde.StatusNotifierWatcher"; // name and interface
constexpr char watcherPath[] = "/StatusNotifierWatcher";
constexpr char watcherComesOrGoes[] =
    "type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',member='NameOwnerChanged',"
    "arg0='org.kde.StatusNotifierWatcher'";

using Handler = int (*)(sd_bus_message *, void *, sd_bus_error *);

bool askForHost(sd_bus *bus, Handler answered, void *tray) {
    return sd_bus_call_method_async(bus, nullptr, watcher, watcherPath, "org.freedesktop.DBus.Properties",
                                    "Get", answered, tray, "ss", watcher,
                                    "IsStatusNotifierHostRegistered") >= 0;
}

xcb_atom_t atom(const QByteArray &name) {
    xcb_connection_t *const xcb = QX11Info::connection();
    const auto request = xcb_intern_atom(xcb, 0, static_cast<std::uint16_t>(name.size()), name.constData());
    const x11::Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(xcb, request, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

bool hasOwner(xcb_atom_t selection) {
    xcb_connection_t *const xcb = QX11Info::connection();
    const x11::Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(xcb, xcb_get_selection_owner(xcb, selection), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

} // namespace

TrayIcon::TrayIcon()
    : m_manager(atom("MANAGER"))
    , m_selection(atom("_NET_SYSTEM_TRAY_S" + QByteArray::number(QX11Info::appScreen()))) {
    QCoreApplication::instance()->installNativeEventFilter(this);
    if (hasOwner(m_selection))
        showSoon();
}

TrayIcon::~TrayIcon() = default;

bool TrayIcon::awaitHostOn(sd_bus *bus) {
    static const Handler answered = [](sd_bus_message *answer, void *tray, sd_bus_error *) {
        int hasHost = 0;
        if (sd_bus_message_read(answer, "v", "b", &hasHost) >= 0 && hasHost)
            static_cast<TrayIcon *>(tray)->showSoon();
        return 0;
    };
    static const Handler changed = [](sd_bus_message *signal, void *tray, sd_bus_error *) {
        askForHost(sd_bus_message_get_bus(signal), answered, tray);
        return 0;
    };
    return sd_bus_add_match_async(bus, nullptr, watcherComesOrGoes, changed, nullptr, this) >= 0 &&
           sd_bus_match_signal_async(bus, nullptr, watcher, watcherPath, watcher,
                                     "StatusNotifierHostRegistered", changed, nullptr, this) >= 0 &&
           askForHost(bus, answered, this);
}

bool TrayIcon::nativeEventFilter(const QByteArray & /*eventType*/, void *message, long * /*result*/) {
    const auto *const event = static_cast<const xcb_generic_event_t *>(message);
    if ((event->response_type & 0x7f) == XCB_CLIENT_MESSAGE) {
        const auto *const note = reinterpret_cast<const xcb_client_message_event_t *>(event);
        if (note->type == m_manager && note->data.data32[1] == m_selection)
            showSoon();
    }
    return false;
}

/// Making the icon calls into the bus and the display, which must not happen while one of their messages is
/// being handled: it is queued.
void TrayIcon::showSoon() {
    QTimer::singleShot(0, this, &TrayIcon::show);
}

/// The toolkit decides for a kind of tray when the first icon is made, and stays with it.
void TrayIcon::show() {
    if (m_icon)
        return;
    m_menu = std::make_unique<TrayMenu>();
    m_icon = std::make_unique<QSystemTrayIcon>(programIcon());
    m_icon->setToolTip(QStringLiteral("Vexa Orbilo"));
    m_icon->setContextMenu(m_menu.get());
    connect(m_icon.get(), &QSystemTrayIcon::activated, this, [](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick)
            showPanelForUser();
    });
    m_icon->show();
}

} // namespace vexa::platform
