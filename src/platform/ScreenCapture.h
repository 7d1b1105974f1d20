// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPixmap>
#include <QRect>
#include <QSize>

/// What can be read off the screen on this desktop. GUI thread only; callers own what they get.
namespace vexa::platform {

/// What the primary screen shows at this moment, and nothing of other screens: device pixels, with the
/// screen's device pixel ratio set. Null when the screen cannot be read.
QPixmap capturePrimaryScreen();

/// Does the next step, of a few milliseconds at most, of preparing what the first picture of the primary
/// screen needs. False when nothing is left to do.
bool prepareCapture();

/// The rectangle, in points of the global desktop, as device pixels. Null when nothing can be captured.
QPixmap captureScreenRect(const QRect &rect);

/// The current pointer picture and its size in whole points. The image is null when there is none.
struct CursorPicture {
    QImage image;
    QSize size;
};
CursorPicture currentCursorPicture();

/// Sends the user to the system's screen-recording permission, where the system has such a place.
void openScreenRecordingSettings();

} // namespace vexa::platform
