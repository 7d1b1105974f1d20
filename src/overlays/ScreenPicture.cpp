// SPDX-License-Identifier: MIT
#include "overlays/ScreenPicture.h"

#include <QGuiApplication>
#include <QScreen>

namespace vexa {

QPixmap pictureOfPrimaryScreen() {
    QScreen *screen = QGuiApplication::primaryScreen();
    // A desktop of several screens is one window: only with a size does the picture end where the screen
    // does.
    const QSize size = screen->size();
    return screen->grabWindow(0, 0, 0, size.width(), size.height());
}

} // namespace vexa
