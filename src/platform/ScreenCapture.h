// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPixmap>
#include <QRect>
#include <QSize>

/// What can be read off the screen on this desktop. GUI thread only; callers own what they get.
namespace vexa::platform {

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
