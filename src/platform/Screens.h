// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ScreenPlace.h"

#include <QObject>
#include <QPoint>
#include <QSize>

#include <functional>

class QScreen;

/// The screens as the toolkit knows them, which is where the windows go: the one answer to what lies where.
/// GUI thread.
namespace vexa::platform {

/// In the units of the session's input: device pixels on X11, points on macOS.
ScreenPlace placeOf(const QScreen &screen);

/// The least size in points whose window covers every pixel of the screen: what the screen is said to have,
/// which is rounded, or a point more.
QSize coveringPoints(const QScreen &screen);

/// Whether a place, given in points of the primary screen, lies on another screen.
bool isOnAnotherScreen(const QPoint &points);

/// Whether the pointer is on another screen than the primary one now.
bool isPointerOnAnotherScreen();

/// Has it called whenever a screen may have got another place, size or scale, as long as the context lives.
/// That is within the toolkit's handling of the change: other screens may still be where they were.
void whenScreensMove(QObject *context, const std::function<void()> &moved);

/// Puts the session's input to use, and keeps it told where the primary screen lies as long as it lives: that
/// may become another one, move, or change its size.
class ScreenWatch : public QObject {
public:
    ScreenWatch();

private:
    static void primaryScreenChanged();
};

} // namespace vexa::platform
