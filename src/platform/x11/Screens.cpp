// SPDX-License-Identifier: MIT
#include "platform/Screens.h"

#include <QGuiApplication>
#include <QScreen>
#include <QVector>
#include <QX11Info>

#include <cmath>
#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

namespace vexa::platform {

namespace {

/// The X screen's in device pixels, now; 0 x 0 where it cannot be asked.
Pixels desktopSize() {
    if (!QX11Info::isPlatformX11())
        return {0, 0};
    xcb_connection_t *const connection = QX11Info::connection();
    const auto root = static_cast<xcb_window_t>(QX11Info::appRootWindow());
    const std::unique_ptr<xcb_get_geometry_reply_t, decltype(&std::free)> geometry(
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, root), nullptr), &std::free);
    return geometry ? Pixels{geometry->width, geometry->height} : Pixels{0, 0};
}

/// A length in points was rounded to a whole number, so that the edge it leads to may be half a point off.
/// The desktop ends, and other screens begin, at whole pixels: where one of those edges is as near, it is
/// meant.
int exactEdge(int edge, double scale, const QVector<int> &edges) {
    for (const int exact : edges)
        if (std::abs(exact - edge) <= std::ceil(scale / 2))
            return exact;
    return edge;
}

} // namespace

ScreenPlace placeOf(const QScreen &screen) {
    const QRect geometry = screen.geometry();
    const double scale = screen.devicePixelRatio();
    Pixels size{qRound(geometry.width() * scale), qRound(geometry.height() * scale)};
    if (scale != 1) {
        const Pixels desktop = desktopSize();
        QVector<int> across{desktop.x};
        QVector<int> down{desktop.y};
        for (const QScreen *other : QGuiApplication::screens()) {
            across += other->geometry().x();
            down += other->geometry().y();
        }
        size.x = exactEdge(geometry.x() + size.x, scale, across) - geometry.x();
        size.y = exactEdge(geometry.y() + size.y, scale, down) - geometry.y();
    }
    return {{geometry.x(), geometry.y()}, size, scale};
}

} // namespace vexa::platform
