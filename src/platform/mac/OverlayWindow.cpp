// SPDX-License-Identifier: MIT
#include "platform/OverlayWindow.h"

#include "platform/mac/ObjectiveC.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace vexa::platform {

namespace {

// Of AppKit's headers, which plain C++ cannot include.
constexpr long screenSaverLevel = 1000;
constexpr unsigned long nonactivatingPanel = 1UL << 7;
constexpr unsigned long canJoinAllSpaces = 1UL << 0;
constexpr unsigned long stationary = 1UL << 4;
constexpr unsigned long fullScreenAuxiliary = 1UL << 8;
constexpr long noAnimation = 2;

// The documented way into another program's full-screen space. Newer systems are said to hide some windows
// for the last of the three: the other variant is to do without it.
constexpr unsigned long inEverySpace = canJoinAllSpaces | stationary | fullScreenAuxiliary;

/// What lies over another program's full-screen space is a panel that activates nothing; a plain window of a
/// program with a dock icon is kept off it. The toolkit makes panels of tool windows only, and decides when
/// it makes the native window and each time it shows it: so the native window is a tool window from its
/// creation on, while the widget keeps its own flags. The system's shadow is drawn once, of the first frame:
/// it would stay around a card that fades, and fall on the screen beside an overlay.
void makePanel(QWidget &widget, Qt::WindowFlags more) {
    const Qt::WindowFlags own = widget.windowFlags();
    const Qt::WindowFlags native = (own & ~Qt::WindowType_Mask) | Qt::Tool | Qt::WindowDoesNotAcceptFocus |
                                   Qt::NoDropShadowWindowHint | more;
    widget.overrideWindowFlags(native);
    widget.winId();
    widget.overrideWindowFlags(own);
    widget.windowHandle()->setFlags(native); // of one that was there already
}

// Qt's window id is the view; the view knows its window.
id nativeWindow(QWidget &widget) {
    const WId view = widget.winId();
    return send<id>((id)view, "window"); // NOLINT(performance-no-int-to-ptr)
}

void layOverEverySpace(id window) {
    send<void>(window, "setStyleMask:", send<unsigned long>(window, "styleMask") | nonactivatingPanel);
    send<void>(window, "setCollectionBehavior:", inEverySpace);
    send<void>(window, "setHidesOnDeactivate:", BOOL{false});
    send<void>(window, "setLevel:", screenSaverLevel);
}

// The toolkit has tool windows fade in and out: the picture that the next tool takes would have the last one
// in it. And "Hide Others", which empties the screen before a talk, would put the pen's tools away with the
// panel: a hidden program shows only windows that cannot be hidden.
void keepOutOfTheSystemsEffects(id window) {
    send<void>(window, "setAnimationBehavior:", noAnimation);
    send<void>(window, "setCanHide:", BOOL{false});
}

/// Qt's own full-screen state would move the window into a space of its own, away from the slide show. The
/// spaces have to be known when the window is shown; all of it is told again afterwards, because showing is
/// when the toolkit gives a window what it thinks right.
void showOverFullScreenSpaces(QWidget &widget, Qt::WindowFlags more = {}) {
    const AutoreleasePool pool;
    widget.setAttribute(Qt::WA_ShowWithoutActivating);
    makePanel(widget, more);
    const id window = nativeWindow(widget);
    layOverEverySpace(window);
    keepOutOfTheSystemsEffects(window);
    widget.show();
    const id shown = nativeWindow(widget);
    layOverEverySpace(shown);
    send<void>(shown, "setIgnoresMouseEvents:", BOOL{more.testFlag(Qt::WindowTransparentForInput)});
    send<void>(shown, "orderFrontRegardless");
}

// In this order: a new geometry ends the state.
void occupy(QWidget &overlay, Cover cover) {
    const QScreen &screen = *QGuiApplication::primaryScreen();
    overlay.setGeometry(cover == Cover::Maximized ? screen.availableGeometry() : screen.geometry());
    overlay.overrideWindowState(windowStateOf(cover));
}

} // namespace

void showOverPrimaryScreen(QWidget &overlay, Cover cover) {
    occupy(overlay, cover);
    showOverFullScreenSpaces(overlay);
}

void fitToPrimaryScreen(QWidget &overlay) {
    occupy(overlay, overlay.isMaximized() ? Cover::Maximized : Cover::FullScreen);
}

void fitToScale(QWidget & /*widget*/) {
    // Windows are measured in points here, whatever their screen's scale.
}

void showAboveAll(QWidget &card) {
    showOverFullScreenSpaces(card, Qt::WindowTransparentForInput);
}

void setOverlayOpacity(QWidget &card, double opacity) {
    card.setWindowOpacity(std::max(0.0, opacity));
}

} // namespace vexa::platform
