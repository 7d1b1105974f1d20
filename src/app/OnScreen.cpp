// SPDX-License-Identifier: MIT
#include "app/OnScreen.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace vexa {

namespace {

/// How well a screen suits a window: first by how much of the window it shows, then by how near it is.
std::pair<qint64, qint64> suitability(const QRect &window, const QRect &screen) {
    const QRect shown = window & screen;
    const QPoint away = window.center() - screen.center();
    return {qint64{shown.width()} * shown.height(), -qint64{away.manhattanLength()}};
}

/// Too large a window starts where the screen does.
int within(int position, int size, int start, int end) {
    return std::max(start, std::min(position, end - size));
}

} // namespace

QPoint wholeOnAScreen(const QRect &window, const QVector<QRect> &screens) {
    if (screens.isEmpty())
        return window.topLeft();
    const QRect &screen =
        *std::max_element(screens.begin(), screens.end(), [&](const QRect &one, const QRect &other) {
            return suitability(window, one) < suitability(window, other);
        });
    return {within(window.x(), window.width(), screen.x(), screen.x() + screen.width()),
            within(window.y(), window.height(), screen.y(), screen.y() + screen.height())};
}

OnScreen::OnScreen(QWidget &window) : QObject(&window), m_window(window) {
    window.installEventFilter(this);
    const auto follow = [this](const QScreen *screen) {
        connect(screen, &QScreen::availableGeometryChanged, this, &OnScreen::placeIfShown);
    };
    for (const QScreen *screen : QGuiApplication::screens())
        follow(screen);
    const auto *const application = qGuiApp;
    connect(application, &QGuiApplication::screenAdded, this, follow);
    connect(application, &QGuiApplication::screenRemoved, this, &OnScreen::placeIfShown,
            Qt::QueuedConnection);
}

bool OnScreen::eventFilter(QObject *watched, QEvent *event) {
    if (watched == &m_window && event->type() == QEvent::Show && !event->spontaneous())
        place();
    return false;
}

void OnScreen::placeIfShown() {
    if (m_window.isVisible())
        place();
}

void OnScreen::place() {
    QVector<QRect> screens;
    for (const QScreen *screen : QGuiApplication::screens())
        screens += screen->availableGeometry();
    const QPoint place = wholeOnAScreen(m_window.geometry(), screens);
    if (place != m_window.pos())
        m_window.move(place);
}

} // namespace vexa
