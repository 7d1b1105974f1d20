// SPDX-License-Identifier: MIT
#include "e2e/Trays.h"

#include "support/Patience.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QTest>

namespace e2e {

namespace {

const QString watcher = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString itemInterface = QStringLiteral("org.kde.StatusNotifierItem");
const QString menuInterface = QStringLiteral("com.canonical.dbusmenu");
const QString menuPath = QStringLiteral("/MenuBar");

QDBusMessage callOf(const QString &service, const QString &path, const QString &interface,
                    const QString &method, const QVariantList &arguments) {
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, method);
    call.setArguments(arguments);
    return call;
}

} // namespace

BusTray::BusTray(const QString &address)
    : m_bus(QDBusConnection::connectToBus(address, QStringLiteral("tray"))) {
    m_bus.registerObject(QStringLiteral("/StatusNotifierWatcher"), this,
                         QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties);
    m_bus.registerService(watcher);
}

BusTray::~BusTray() {
    QDBusConnection::disconnectFromBus(QStringLiteral("tray"));
}

void BusTray::RegisterStatusNotifierItem(const QString &service) {
    m_item = service;
}

void BusTray::click() const {
    m_bus.send(callOf(m_item, QStringLiteral("/StatusNotifierItem"), itemInterface,
                      QStringLiteral("Activate"), {0, 0}));
}

QStringList BusTray::menuTexts() {
    // The program may be asking the tray meanwhile. Not with QDBus::BlockWithGui, which waits for ever when
    // the reply has come before its event loop began.
    const QDBusPendingCall call = m_bus.asyncCall(
        callOf(m_item, menuPath, menuInterface, QStringLiteral("GetLayout"), {0, -1, QStringList()}));
    m_menu.clear();
    if (!QTest::qWaitFor([&call] { return call.isFinished(); }, vexa::test::patience))
        return {};
    const QDBusMessage reply = call.reply();
    if (reply.type() != QDBusMessage::ReplyMessage)
        return {};
    // An entry is its number, its properties and its own entries; the outermost one is the menu itself.
    const auto layout = reply.arguments().at(1).value<QDBusArgument>();
    int number = 0;
    QVariantMap properties;
    QVariantList entries;
    layout.beginStructure();
    layout >> number >> properties >> entries;
    layout.endStructure();
    QStringList texts;
    for (const QVariant &entry : entries) {
        const auto inner = entry.value<QDBusArgument>();
        QVariantList none;
        inner.beginStructure();
        inner >> number >> properties >> none;
        inner.endStructure();
        texts += properties.value(QStringLiteral("label")).toString();
        m_menu.insert(texts.last(), number);
    }
    return texts;
}

void BusTray::choose(const QString &text) const {
    const QVariantList arguments{m_menu.value(text), QStringLiteral("clicked"),
                                 QVariant::fromValue(QDBusVariant(QString())), 0U};
    m_bus.send(callOf(m_item, menuPath, menuInterface, QStringLiteral("Event"), arguments));
}

DisplayTray::DisplayTray() : m_connection(xcb_connect(nullptr, nullptr)) {
    xcb_connection_t *const server = m_connection.get();
    const xcb_window_t root = xcb::root(server);
    const xcb_window_t tray = xcb_generate_id(server);
    xcb_create_window(server, XCB_COPY_FROM_PARENT, tray, root, 0, 0, 30, 30, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    const xcb_atom_t selection = xcb::atom(server, "_NET_SYSTEM_TRAY_S0");
    xcb_set_selection_owner(server, tray, selection, XCB_CURRENT_TIME);
    xcb_client_message_event_t announcement{};
    announcement.response_type = XCB_CLIENT_MESSAGE;
    announcement.format = 32;
    announcement.window = root;
    announcement.type = xcb::atom(server, "MANAGER");
    announcement.data.data32[1] = selection;
    announcement.data.data32[2] = tray;
    xcb_send_event(server, 0, root, XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&announcement));
    xcb_flush(server);
}

DisplayTray::~DisplayTray() = default;

bool DisplayTray::hasIcon() {
    constexpr std::uint32_t dock = 0; // what a message to the tray can ask for
    while (const auto event = xcb::owned(xcb_poll_for_event(m_connection.get()))) {
        const auto *const message = reinterpret_cast<const xcb_client_message_event_t *>(event.get());
        if (xcb::typeOf(*event) == XCB_CLIENT_MESSAGE && message->data.data32[1] == dock)
            m_hasIcon = true;
    }
    return m_hasIcon;
}

} // namespace e2e
