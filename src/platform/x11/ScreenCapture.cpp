// SPDX-License-Identifier: MIT
#include "platform/ScreenCapture.h"

#include "platform/Screens.h"
#include "platform/x11/PictureReserve.h"
#include "platform/x11/ScreenBands.h"

#include <QGuiApplication>
#include <QScreen>
#include <QX11Info>

#include <memory>
#include <utility>

#include <X11/Xlib.h>
#include <X11/extensions/Xfixes.h>

namespace vexa::platform {

QPixmap capturePrimaryScreen() {
    QScreen *screen = QGuiApplication::primaryScreen();
    const ScreenPlace place = placeOf(*screen);
    const ScreenBands *bands = ScreenBands::instance();
    QImage picture =
        bands ? bands->take({place.origin.x, place.origin.y, place.size.x, place.size.y}) : QImage();
    if (picture.isNull())
        return screen->grabWindow(0, 0, 0, screen->size().width(), screen->size().height());
    QPixmap pixmap = QPixmap::fromImage(std::move(picture)); // moved, it is the pixmap's own memory
    pixmap.setDevicePixelRatio(place.pixelsPerPoint);
    return pixmap;
}

bool prepareCapture() {
    const ScreenPlace place = placeOf(*QGuiApplication::primaryScreen());
    return ScreenBands::instance() && PictureReserve::prepare({place.size.x, place.size.y});
}

QPixmap captureScreenRect(const QRect &rect) {
    QScreen *screen = QGuiApplication::primaryScreen();
    // Beyond the desktop's edges the server would leave the memory as it was.
    const QRect inside = rect & screen->virtualGeometry();
    if (inside.isEmpty())
        return {};
    const QPoint at = inside.topLeft() - screen->geometry().topLeft();
    return screen->grabWindow(0, at.x(), at.y(), inside.width(), inside.height());
}

CursorPicture currentCursorPicture() {
    if (!QX11Info::isPlatformX11())
        return {};
    const std::unique_ptr<XFixesCursorImage, int (*)(void *)> cursor(
        XFixesGetCursorImage(QX11Info::display()), XFree);
    if (!cursor)
        return {};
    // Each word comes in a long, whatever a long's size is.
    QImage image(cursor->width, cursor->height, QImage::Format_RGB32);
    const unsigned long *word = cursor->pixels;
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            line[x] = static_cast<QRgb>(*word++);
    }
    return {image, image.size()};
}

// Every client of an X server may read its screen: there is no such permission and no settings page to open.
void openScreenRecordingSettings() {}

} // namespace vexa::platform
