// SPDX-License-Identifier: MIT
#include "platform/OverlayWindow.h"

#include "platform/mac/ObjectiveC.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace vexa::platform {

namespace {

// Of AppKit's headers, which plain C++ cannot include.
constexpr long screenSaverLevel = 1000;
constexpr unsigned long canJoinAllSpaces = 1UL << 0;
constexpr unsigned long stationary = 1UL << 4;
constexpr unsigned long fullScreenAuxiliary = 1UL << 8;

// Qt's window id is the view; the view knows its window.
id nativeWindow(QWidget &widget) {
    const WId view = widget.winId();
    return send<id>((id)view, "window"); // NOLINT(performance-no-int-to-ptr)
}

// Qt's own full-screen state would move the window into a space of its own, away from the slide show. A
// window that may join another program's full-screen space, above its level, lies over it and leaves it the
// focus.
void showOverFullScreenSpaces(QWidget &widget) {
    const AutoreleasePool pool;
    widget.setAttribute(Qt::WA_ShowWithoutActivating);
    const id window = nativeWindow(widget);
    send<void>(window, "setCollectionBehavior:", canJoinAllSpaces | stationary | fullScreenAuxiliary);
    send<void>(window, "setHidesOnDeactivate:", BOOL{false});
    widget.show();
    send<void>(window, "setLevel:", screenSaverLevel);
    send<void>(window, "orderFrontRegardless");
}

} // namespace

void showOverPrimaryScreen(QWidget &overlay, Cover cover) {
    const QScreen &screen = *QGuiApplication::primaryScreen();
    overlay.setGeometry(cover == Cover::Maximized ? screen.availableGeometry() : screen.geometry());
    overlay.overrideWindowState(windowStateOf(cover));
    showOverFullScreenSpaces(overlay);
}

void showAboveAll(QWidget &card) {
    showOverFullScreenSpaces(card);
}

void setOverlayOpacity(QWidget &card, double opacity) {
    const AutoreleasePool pool;
    send<void>(nativeWindow(card), "setIgnoresMouseEvents:", BOOL{opacity <= 0});
    card.setWindowOpacity(std::max(0.0, opacity));
}

} // namespace vexa::platform
