// SPDX-License-Identifier: MIT
#include "platform/OverlayWindow.h"

#include "platform/Screens.h"
#include "platform/x11/BandedFirstFrame.h"

#include <QBackingStore>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <QX11Info>

#include <algorithm>

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/Xfixes.h>
#include <X11/extensions/shape.h>

namespace vexa::platform {
namespace {

/// Mutter draws a shadow around unmanaged windows too, and leaves that of a card behind that has faded. It
/// spares a window that claims to draw its own.
void refuseShadow(WId window) {
    if (!QX11Info::isPlatformX11())
        return;
    Display *display = QX11Info::display();
    const long noWidths[4] = {};
    XChangeProperty(display, window, XInternAtom(display, "_GTK_FRAME_EXTENTS", False), XA_CARDINAL, 32,
                    PropModeReplace, reinterpret_cast<const unsigned char *>(noWidths), 4);
}

/// What a window is painted in has a size in points, and stays as it is in pixels when the window gets
/// another scale: of a larger one it would cover the first quarter.
void paintAtPresentScale(QWidget &widget) {
    if (QBackingStore *store = widget.backingStore())
        store->resize(widget.size());
    widget.update();
}

void followScale(QWidget &widget) {
    QWindow *const window = widget.windowHandle();
    QObject::disconnect(window, &QWindow::screenChanged, &widget, nullptr); // of an earlier showing
    QObject::connect(window, &QWindow::screenChanged, &widget, [&widget] { paintAtPresentScale(widget); });
}

/// Makes it a window that the window manager neither places nor focuses. Only the native window is told: to
/// the widget these would be other window flags.
void takeFromWindowManager(QWidget &widget, Qt::WindowFlags more = {}) {
    widget.winId();
    QWindow *window = widget.windowHandle();
    window->setFlags(window->flags() | Qt::BypassWindowManagerHint | Qt::WindowDoesNotAcceptFocus | more);
    followScale(widget);
    refuseShadow(widget.winId());
}

/// Qt's event loop leaves requests without an answer in its buffer until something else is sent.
void sendRequests() {
    if (QX11Info::isPlatformX11())
        XFlush(QX11Info::display());
}

void showOnTop(QWidget &widget) {
    widget.show();
    widget.raise();
    sendRequests();
}

/// Without a compositing manager the opacity changes nothing, so a window that shall not be seen is left
/// without an area.
void setArea(WId window, bool whole) {
    if (!QX11Info::isPlatformX11())
        return;
    Display *display = QX11Info::display();
    const XserverRegion region = whole ? XserverRegion(None) : XFixesCreateRegion(display, nullptr, 0);
    XFixesSetWindowShapeRegion(display, window, ShapeBounding, 0, 0, region);
    if (!whole)
        XFixesDestroyRegion(display, region);
}

/// In points, with all of its pixels.
QRect primaryScreenArea() {
    const QScreen &screen = *QGuiApplication::primaryScreen();
    return {screen.geometry().topLeft(), coveringPoints(screen)};
}

void occupy(QWidget &overlay, Qt::WindowStates state) {
    // In this order: a new geometry ends the state. No window manager acts on the state of a window that is
    // not its own, but the toolkit takes over what it reads back from the server.
    overlay.setGeometry(primaryScreenArea());
    overlay.setWindowState(state);
}

/// The step of 255 in which the toolkit keeps an opacity.
int opacityStep(double opacity) {
    return int(std::clamp(opacity, 0.0, 1.0) * 255);
}

} // namespace

void showOverPrimaryScreen(QWidget &overlay, Cover cover) {
    // First, since a window keeps the scale of the screen on which it is made until it hears of its move.
    overlay.setGeometry(primaryScreenArea());
    takeFromWindowManager(overlay);
    occupy(overlay, windowStateOf(cover));
    BandedFirstFrame::paint(overlay);
    showOnTop(overlay);
}

void fitToPrimaryScreen(QWidget &overlay) {
    occupy(overlay, overlay.windowState());
    fitToScale(overlay);
    sendRequests();
}

/// To the widget nothing has changed, so only its window can tell.
void fitToScale(QWidget &widget) {
    QWindow *const window = widget.windowHandle();
    if (!window || window->geometry() == widget.geometry())
        return;
    window->setGeometry(widget.geometry());
    paintAtPresentScale(widget);
}

void showAboveAll(QWidget &card) {
    takeFromWindowManager(card, Qt::WindowTransparentForInput);
    showOnTop(card);
}

void setOverlayOpacity(QWidget &card, double opacity) {
    const int step = opacityStep(opacity);
    const int before = qRound(card.windowOpacity() * 255);
    if (step == before)
        return;
    if ((step == 0) != (before == 0))
        setArea(card.winId(), step != 0);
    card.setWindowOpacity(step == 0 ? 0.0 : opacity);
    sendRequests();
}

} // namespace vexa::platform
