// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ScreenPlace.h"

#include <QObject>
#include <QPoint>

class QScreen;

/// The screens as the toolkit knows them, which is where the windows go: the one answer to what lies where.
/// GUI thread.
namespace vexa::platform {

/// In the units of the session's input: device pixels on X11, points on macOS.
ScreenPlace placeOf(const QScreen &screen);

/// Whether a place, given in points of the primary screen, lies on another screen.
bool isOnAnotherScreen(const QPoint &points);

/// Whether the pointer is on another screen than the primary one now.
bool isPointerOnAnotherScreen();

/// Puts the session's input to use, and keeps it told where the primary screen lies as long as it lives: that
/// may become another one, move, or change its size.
class ScreenWatch : public QObject {
public:
    ScreenWatch();

private:
    void follow(QScreen *screen);
    static void primaryScreenChanged();
};

} // namespace vexa::platform
