// SPDX-License-Identifier: MIT
#include "platform/Screens.h"

#include "platform/SessionInput.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace vexa::platform {

QSize coveringPoints(const QScreen &screen) {
    const ScreenPlace place = placeOf(screen);
    return {coveringLength(screen.size().width(), place.pixelsPerPoint, place.size.x),
            coveringLength(screen.size().height(), place.pixelsPerPoint, place.size.y)};
}

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

void whenScreensMove(QObject *context, const std::function<void()> &moved) {
    const auto watch = [context, moved](const QScreen *screen) {
        QObject::connect(screen, &QScreen::geometryChanged, context, moved);
        // Where each screen has a scale of its own, the toolkit takes over all their places when it gets
        // their dots per inch, signals these alone, and finds nothing changed afterwards.
        QObject::connect(screen, &QScreen::logicalDotsPerInchChanged, context, moved);
    };
    for (const QScreen *screen : QGuiApplication::screens())
        watch(screen);
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, context, watch);
}

ScreenWatch::ScreenWatch() {
    whenScreensMove(this, &ScreenWatch::primaryScreenChanged);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &ScreenWatch::primaryScreenChanged);
    useSessionInput(placeOf(*QGuiApplication::primaryScreen()));
}

void ScreenWatch::primaryScreenChanged() {
    // Between two screens, when the only monitor was pulled out, there may be none.
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        followPrimaryScreen(placeOf(*screen));
}

} // namespace vexa::platform
