// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QWidget>

/// Pictures of the screen. Rectangles are in points of the global desktop, pictures in device pixels; a
/// picture is null where nothing could be captured. Nothing reports a failure. GUI thread only.
class Grab {
public:
    Grab() = default;

    static QPixmap qt_mac_grabScreenRect_10_6(const QRect &rect);

    /// The rectangle of the screen; which window is meant makes no difference.
    static QPixmap grabWindow(WId window, int x, int y, int w, int h);

    /// The rectangle of the screen with the pointer's picture in it.
    static QPixmap getCursorPixmap(int x, int y, int w, int h);

    /// Sends the user to the system's permission for screen recording.
    static void SetpTosysCamera();
};
