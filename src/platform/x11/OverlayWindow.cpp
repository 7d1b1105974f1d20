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
#include <optional>
#include <vector>

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/Xfixes.h>
#include <X11/extensions/shape.h>

namespace vexa::platform {
namespace {

void setCardinals(WId window, const char *property, const std::vector<long> &values) {
    Display *display = QX11Info::display();
    XChangeProperty(display, window, XInternAtom(display, property, False), XA_CARDINAL, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char *>(values.data()), int(values.size()));
}

/// Mutter draws a shadow around unmanaged windows too, and leaves that of a card behind that has faded. It
/// spares a window that claims to draw its own. picom has a property for what gets none.
void refuseShadow(WId window) {
    if (!QX11Info::isPlatformX11())
        return;
    setCardinals(window, "_GTK_FRAME_EXTENTS", {0, 0, 0, 0});
    setCardinals(window, "_COMPTON_SHADOW", {0});
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

/// Lets the window be seen in this area of it alone, in device pixels; without one in all of it.
void setArea(WId window, const std::optional<QRect> &area) {
    if (!QX11Info::isPlatformX11())
        return;
    Display *display = QX11Info::display();
    XserverRegion region = None;
    if (area) {
        XRectangle pixels{};
        pixels.width = static_cast<unsigned short>(area->width());
        pixels.height = static_cast<unsigned short>(area->height());
        region = XFixesCreateRegion(display, &pixels, 1);
    }
    XFixesSetWindowShapeRegion(display, window, ShapeBounding, 0, 0, region);
    if (area)
        XFixesDestroyRegion(display, region);
}

/// At some scales the points that all pixels of the screen need are more pixels than it has, and what lies
/// beyond them is another monitor's.
void occupy(QWidget &overlay, Qt::WindowStates state) {
    const QScreen &screen = *QGuiApplication::primaryScreen();
    // In this order: a new geometry ends the state. No window manager acts on the state of a window that is
    // not its own, but the toolkit takes over what it reads back from the server.
    const QSize points = coveringPoints(screen);
    overlay.setGeometry({screen.geometry().topLeft(), points});
    overlay.setWindowState(state);
    std::optional<QRect> own;
    if (points != screen.size()) {
        const Pixels pixels = placeOf(screen).size;
        own = QRect(0, 0, pixels.x, pixels.y);
    }
    setArea(overlay.winId(), own);
}

/// The step of 255 in which the toolkit keeps an opacity.
int opacityStep(double opacity) {
    return int(std::clamp(opacity, 0.0, 1.0) * 255);
}

} // namespace

void showOverPrimaryScreen(QWidget &overlay, Cover cover) {
    // First, since a window keeps the scale of the screen on which it is made until it is told of its move.
    overlay.setGeometry(QGuiApplication::primaryScreen()->geometry());
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
    // Without a compositing manager the opacity changes nothing, so a card that shall not be seen is left
    // without an area.
    if ((step == 0) != (before == 0))
        setArea(card.winId(), step == 0 ? std::optional(QRect()) : std::nullopt);
    card.setWindowOpacity(step == 0 ? 0.0 : opacity);
    sendRequests();
}

} // namespace vexa::platform
