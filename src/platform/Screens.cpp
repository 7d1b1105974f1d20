// SPDX-License-Identifier: MIT
#include "platform/Screens.h"

#include "platform/SessionInput.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace vexa::platform {

bool isOnAnotherScreen(const QPoint &points) {
    const ScreenPlace primary = placeOf(*QGuiApplication::primaryScreen());
    const Pixels pixels = primary.toPixels({double(points.x()), double(points.y())});
    if (primary.contains(pixels))
        return false;
    const QList<QScreen *> screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(),
                       [pixels](const QScreen *screen) { return placeOf(*screen).contains(pixels); });
}

bool isPointerOnAnotherScreen() {
    const QScreen *screen = QGuiApplication::screenAt(QCursor::pos());
    return screen && screen != QGuiApplication::primaryScreen();
}

ScreenWatch::ScreenWatch() {
    for (QScreen *screen : QGuiApplication::screens())
        follow(screen);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &ScreenWatch::follow);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &ScreenWatch::primaryScreenChanged);
    useSessionInput(placeOf(*QGuiApplication::primaryScreen()));
}

void ScreenWatch::follow(QScreen *screen) {
    connect(screen, &QScreen::geometryChanged, this, &ScreenWatch::primaryScreenChanged);
}

void ScreenWatch::primaryScreenChanged() {
    // Between two screens, when the only monitor was pulled out, there may be none.
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        followPrimaryScreen(placeOf(*screen));
}

} // namespace vexa::platform
