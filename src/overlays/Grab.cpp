// SPDX-License-Identifier: MIT
#include "overlays/Grab.h"

#include "overlays/CursorPainting.h"
#include "platform/ScreenCapture.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

QPixmap Grab::qt_mac_grabScreenRect_10_6(const QRect &rect) {
    return vexa::platform::captureScreenRect(rect);
}

QPixmap Grab::grabWindow(WId /*window*/, int x, int y, int w, int h) {
    return qt_mac_grabScreenRect_10_6(QRect(QPoint(x, y), QPoint(x + w - 1, y + h - 1)));
}

QPixmap Grab::getCursorPixmap(int x, int y, int w, int h) {
    const vexa::platform::CursorPicture cursor = vexa::platform::currentCursorPicture();
    // The picture ends with the desktop, so the pointer is placed by what is left of the rectangle.
    const QRect area = QRect(x, y, w, h) & QGuiApplication::primaryScreen()->virtualGeometry();
    QImage screen = qt_mac_grabScreenRect_10_6(area).toImage();
    vexa::paintCursor(screen, area, cursor.image, cursor.size, QCursor::pos());
    QPixmap result;
    result.convertFromImage(screen);
    return result;
}

void Grab::SetpTosysCamera() {
    vexa::platform::openScreenRecordingSettings();
}
