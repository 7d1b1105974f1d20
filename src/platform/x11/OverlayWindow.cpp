// SPDX-License-Identifier: MIT
#include "platform/OverlayWindow.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <QX11Info>

#include <X11/Xlib.h>
#include <X11/extensions/Xfixes.h>
#include <X11/extensions/shape.h>

namespace vexa::platform {
namespace {

// Below half a step of the 255 a card cannot be seen.
constexpr double leastVisible = 0.5 / 255;

// On the widget: the native window that was given an empty shape.
constexpr char emptiedWindow[] = "vexaEmptiedWindow";

/// Makes it a window that the window manager neither places nor focuses. Only the native window is told: to
/// the widget these would be other window flags.
void takeFromWindowManager(QWidget &widget) {
    widget.winId();
    QWindow *window = widget.windowHandle();
    window->setFlags(window->flags() | Qt::BypassWindowManagerHint | Qt::WindowDoesNotAcceptFocus);
}

/// Qt's event loop leaves requests without an answer in its buffer until something else is sent.
void reachServer() {
    if (QX11Info::isPlatformX11())
        XSync(QX11Info::display(), False);
}

void showOnTop(QWidget &widget) {
    widget.show();
    widget.raise();
    reachServer();
}

bool isEmptied(const QWidget &card) {
    return card.property(emptiedWindow).toULongLong() == card.internalWinId();
}

void sendShape(WId window, bool emptied) {
    if (!QX11Info::isPlatformX11())
        return;
    Display *display = QX11Info::display();
    const XserverRegion region = emptied ? XFixesCreateRegion(display, nullptr, 0) : XserverRegion(None);
    XFixesSetWindowShapeRegion(display, window, ShapeBounding, 0, 0, region);
    if (emptied)
        XFixesDestroyRegion(display, region);
}

/// Without a compositing manager the opacity changes nothing, and with one an invisible window still takes
/// the clicks: a window without an area does neither.
void setEmptied(QWidget &card, bool emptied) {
    const WId window = card.winId();
    if (emptied == isEmptied(card))
        return;
    sendShape(window, emptied);
    card.setProperty(emptiedWindow, emptied ? qulonglong(window) : 0);
}

} // namespace

void showOverPrimaryScreen(QWidget &overlay, Cover /*cover*/) {
    takeFromWindowManager(overlay);
    overlay.setGeometry(QGuiApplication::primaryScreen()->geometry());
    showOnTop(overlay);
}

void showAboveAll(QWidget &card) {
    takeFromWindowManager(card);
    showOnTop(card);
}

void setOverlayOpacity(QWidget &card, double opacity) {
    const bool visible = opacity >= leastVisible;
    setEmptied(card, !visible);
    card.setWindowOpacity(visible ? opacity : 0.0);
    reachServer();
}

} // namespace vexa::platform
