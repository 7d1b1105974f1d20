// SPDX-License-Identifier: MIT
#include "overlays/Grab.h"

#include "overlays/CursorPainting.h"
#include "platform/ScreenCapture.h"

#include <QCursor>

QPixmap Grab::qt_mac_grabScreenRect_10_6(const QRect &rect) {
    return vexa::platform::captureScreenRect(rect);
}

QPixmap Grab::grabWindow(WId /*window*/, int x, int y, int w, int h) {
    return qt_mac_grabScreenRect_10_6(QRect(QPoint(x, y), QPoint(x + w - 1, y + h - 1)));
}

QPixmap Grab::getCursorPixmap(int x, int y, int w, int h) {
    const vexa::platform::CursorPicture cursor = vexa::platform::currentCursorPicture();
    const QRect area(QPoint(x, y), QPoint(x + w - 1, y + h - 1));
    QImage screen = qt_mac_grabScreenRect_10_6(area).toImage();
    vexa::paintCursor(screen, area, cursor.image, cursor.size, QCursor::pos());
    QPixmap result;
    result.convertFromImage(screen);
    return result;
}

void Grab::SetpTosysCamera() {
    vexa::platform::openScreenRecordingSettings();
}
