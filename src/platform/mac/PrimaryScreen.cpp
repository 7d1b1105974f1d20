// SPDX-License-Identifier: MIT
#include "platform/ScreenCapture.h"

#include <QGuiApplication>
#include <QScreen>

namespace vexa::platform {

QPixmap capturePrimaryScreen() {
    QScreen *screen = QGuiApplication::primaryScreen();
    return screen->grabWindow(0, 0, 0, screen->size().width(), screen->size().height());
}

// Where the system keeps its pictures is its own business.
bool prepareCapture() {
    return false;
}

} // namespace vexa::platform
