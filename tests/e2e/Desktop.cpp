// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"

#include "e2e/Program.h"
#include "e2e/Xcb.h"
#include "support/Patience.h"

#include <QDirIterator>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QTest>
#include <QX11Info>

#include <algorithm>
#include <array>

namespace e2e {

namespace {

using xcb::owned;

xcb_connection_t *connection() {
    return QX11Info::connection();
}

QByteArray property(xcb_window_t window, const char *name) {
    return xcb::property(connection(), window, xcb::atom(connection(), name));
}

bool belongsTo(xcb_window_t window, qint64 pid) {
    const QByteArray value = property(window, "_NET_WM_PID");
    std::uint32_t number = 0;
    if (value.size() != sizeof number)
        return false;
    memcpy(&number, value.constData(), sizeof number);
    return number == pid;
}

Window describe(xcb_window_t window) {
    Window result;
    const auto geometry =
        owned(xcb_get_geometry_reply(connection(), xcb_get_geometry(connection(), window), nullptr));
    const auto attributes = owned(xcb_get_window_attributes_reply(
        connection(), xcb_get_window_attributes(connection(), window), nullptr));
    if (!geometry || !attributes)
        return result; // it has gone meanwhile
    const auto place = owned(xcb_translate_coordinates_reply(
        connection(), xcb_translate_coordinates(connection(), window, geometry->root, 0, 0), nullptr));
    if (!place)
        return result;
    result.id = window;
    result.title = QString::fromUtf8(property(window, "_NET_WM_NAME"));
    result.geometry = QRect(place->dst_x, place->dst_y, geometry->width, geometry->height);
    result.visible = attributes->map_state == XCB_MAP_STATE_VIEWABLE;
    result.managed = !attributes->override_redirect;
    return result;
}

/// A window manager puts top-level windows into frames, so they are looked for some levels deep.
void collect(xcb_window_t parent, qint64 pid, int levels, QVector<Window> &found) {
    const auto tree =
        owned(xcb_query_tree_reply(connection(), xcb_query_tree(connection(), parent), nullptr));
    if (!tree)
        return;
    const xcb_window_t *const children = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
        if (belongsTo(children[i], pid)) {
            const Window window = describe(children[i]);
            if (window.id)
                found.append(window);
        } else if (levels > 1) {
            collect(children[i], pid, levels - 1, found);
        }
    }
}

} // namespace

QVector<Window> windowsOf(qint64 pid) {
    QVector<Window> found;
    collect(static_cast<xcb_window_t>(QX11Info::appRootWindow()), pid, 3, found);
    return found;
}

QVector<Window> visibleWindowsOf(qint64 pid) {
    QVector<Window> windows = windowsOf(pid);
    windows.erase(
        std::remove_if(windows.begin(), windows.end(), [](const Window &window) { return !window.visible; }),
        windows.end());
    return windows;
}

Wishes wishesOf(const Window &window) {
    const auto numbers = [&window](const char *name) {
        const QByteArray value = property(window.id, name);
        QVector<std::uint32_t> result(value.size() / int(sizeof(std::uint32_t)));
        std::copy_n(value.constData(), result.size() * int(sizeof(std::uint32_t)),
                    reinterpret_cast<char *>(result.data()));
        return result;
    };
    Wishes wishes;
    const auto sizes = numbers("WM_NORMAL_HINTS"); // flags, four that are obsolete, smallest, largest, ...
    constexpr std::uint32_t hasSmallest = 1 << 4;
    constexpr std::uint32_t hasLargest = 1 << 5;
    if (sizes.size() > 8 && (sizes[0] & hasSmallest))
        wishes.smallest = QSize(int(sizes[5]), int(sizes[6]));
    if (sizes.size() > 8 && (sizes[0] & hasLargest))
        wishes.largest = QSize(int(sizes[7]), int(sizes[8]));
    const auto decorations = numbers("_MOTIF_WM_HINTS"); // flags, functions, decorations, ...
    constexpr std::uint32_t hasDecorations = 1 << 1;
    wishes.frame = decorations.size() < 3 || !(decorations[0] & hasDecorations) || decorations[2] != 0;
    const auto icons = numbers("_NET_WM_ICON"); // width, height, pixels; again
    for (int i = 0; i + 1 < icons.size(); i += 2 + int(icons[i] * icons[i + 1]))
        wishes.iconSizes.insert(int(icons[i]));
    return wishes;
}

Window visibleWindowOfSize(qint64 pid, const QSize &size) {
    for (const Window &window : visibleWindowsOf(pid))
        if (window.geometry.size() == size)
            return window;
    return {};
}

Window panelOf(qint64 pid, double pixelsPerPoint) {
    return visibleWindowOfSize(pid, (QSizeF(999, 650) * pixelsPerPoint).toSize());
}

bool hasFocus(const Window &window) {
    const auto focus =
        owned(xcb_get_input_focus_reply(connection(), xcb_get_input_focus(connection()), nullptr));
    return focus && focus->focus == window.id;
}

bool hasWithdrawn(qint64 pid, double pixelsPerPoint) {
    // The prompt gets the size of a strip only then, and keeps it when it has faded.
    const QVector<Window> windows = windowsOf(pid);
    return std::any_of(windows.begin(), windows.end(), [pixelsPerPoint](const Window &window) {
        return window.geometry.size() == (QSizeF(300, 60) * pixelsPerPoint).toSize();
    });
}

bool startAndSettle(Program &program, double pixelsPerPoint) {
    const auto settled = [&] {
        return hasWithdrawn(program.pid(), pixelsPerPoint) && !panelOf(program.pid(), pixelsPerPoint).id;
    };
    return program.start() && QTest::qWaitFor(settled, vexa::test::patience);
}

QImage grabScreen() {
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage().convertToFormat(QImage::Format_RGB32);
}

QRgb pixelAt(const QPoint &position) {
    return QGuiApplication::primaryScreen()
        ->grabWindow(0, position.x(), position.y(), 1, 1)
        .toImage()
        .convertToFormat(QImage::Format_RGB32)
        .pixel(0, 0);
}

namespace {

/// Sent to `window`, or, where it is the root, to the window manager.
void sendMessage(xcb_window_t window, const char *type, std::uint32_t data) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = xcb::atom(connection(), type);
    message.data.data32[0] = data;
    const std::uint32_t receivers =
        window == QX11Info::appRootWindow() ? XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT : XCB_EVENT_MASK_NO_EVENT;
    xcb_send_event(connection(), 0, window, receivers, reinterpret_cast<const char *>(&message));
    xcb_flush(connection());
}

int numberIn(xcb_window_t window, const char *name) {
    const QByteArray value = property(window, name);
    std::int32_t number = -1;
    if (value.size() == sizeof number)
        memcpy(&number, value.constData(), sizeof number);
    return number;
}

} // namespace

void askToClose(const Window &window) {
    sendMessage(window.id, "WM_PROTOCOLS", xcb::atom(connection(), "WM_DELETE_WINDOW"));
}

void destroy(const Window &window) {
    xcb_destroy_window(connection(), window.id);
    xcb_flush(connection());
}

void disconnectOwner(const Window &window) {
    xcb_kill_client(connection(), window.id);
    xcb_flush(connection());
}

void pretendDestroyed(const Window &window) {
    xcb_destroy_notify_event_t notice{};
    notice.response_type = XCB_DESTROY_NOTIFY;
    notice.event = window.id;
    notice.window = window.id;
    std::array<char, 32> wire{}; // of every event, however few its structure has
    memcpy(wire.data(), &notice, sizeof notice);
    xcb_send_event(connection(), 0, window.id, XCB_EVENT_MASK_NO_EVENT, wire.data());
    xcb_flush(connection());
}

void switchToDesktop(quint32 number) {
    sendMessage(static_cast<xcb_window_t>(QX11Info::appRootWindow()), "_NET_CURRENT_DESKTOP", number);
}

int presentDesktop() {
    return numberIn(static_cast<xcb_window_t>(QX11Info::appRootWindow()), "_NET_CURRENT_DESKTOP");
}

int desktopOf(const Window &window) {
    return numberIn(window.id, "_NET_WM_DESKTOP");
}

QStringList screenshots() {
    QStringList files;
    QDirIterator found(QDir::homePath() + QStringLiteral("/Desktop"), QDir::Files | QDir::Hidden,
                       QDirIterator::Subdirectories);
    while (found.hasNext())
        files += found.next();
    return files;
}

} // namespace e2e
