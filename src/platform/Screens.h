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

/// Calls `moved` whenever a screen may have got another place, size or scale, as long as the context lives.
/// The call comes while the toolkit still handles the change: other screens may not have moved yet.
void whenScreensMove(QObject *context, const std::function<void()> &moved);

/// Makes the session the source of input, and tells it, as long as this object lives, where the primary
/// screen lies: another screen may become the primary one, or it may move or change its size.
class ScreenWatch : public QObject {
public:
    ScreenWatch();

private:
    static void primaryScreenChanged();
};

} // namespace vexa::platform
