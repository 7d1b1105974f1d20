// SPDX-License-Identifier: MIT
#pragma once

#include <qnamespace.h>

class QWidget;

/// How the windows that lie over a presentation behave on this desktop. GUI thread only.
///
/// An overlay stands above a focused full-screen slide show and above panels, and leaves the focus where it
/// is. None of these functions changes the widget's windowFlags(); none takes ownership; none fails visibly.
namespace vexa::platform {

/// How much of the primary screen an overlay takes: all of it, or the space the desktop gives a maximised
/// window. On X11 both are all of it.
enum class Cover { FullScreen, Maximized };

/// What windowState() of a widget with that cover is, whatever the desktop knows of it: the window is not
/// handed to the desktop as a full-screen one, which would get the focus or a space of its own.
constexpr Qt::WindowState windowStateOf(Cover cover) {
    return cover == Cover::Maximized ? Qt::WindowMaximized : Qt::WindowFullScreen;
}

/// Shows the widget over the whole primary screen. Creates the native window if there is none yet.
void showOverPrimaryScreen(QWidget &overlay, Cover cover = Cover::FullScreen);

/// Gives an overlay that is shown the primary screen's present place and size, with the cover that it has.
/// The order of the windows stays.
void fitToPrimaryScreen(QWidget &overlay);

/// Gives the widget's window as many device pixels as its points have on the screen now. A window keeps its
/// pixels when the scale changes and its points do not. Without a window nothing happens.
void fitToScale(QWidget &widget);

/// Shows the widget at its own geometry (points, relative to the desktop) as a card above everything. The
/// mouse passes through it to what lies below, seen or not.
void showAboveAll(QWidget &card);

/// Sets a card's opacity, 1 fully visible, 0 and below invisible. The change is on its way to the screen's
/// server when this returns, without waiting for an answer; an opacity that the card has already costs
/// nothing. May be called before and after showing. A card that is not wanted for a while stays shown at
/// opacity 0: some compositing managers never again paint a window that was hidden while invisible.
void setOverlayOpacity(QWidget &card, double opacity);

} // namespace vexa::platform
