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

} // namespace

QPoint wholeOnAScreen(const QRect &window, const QVector<QRect> &screens) {
    if (screens.isEmpty())
        return window.topLeft();
    const QRect &screen =
        *std::max_element(screens.begin(), screens.end(), [&](const QRect &one, const QRect &other) {
            return suitability(window, one) < suitability(window, other);
        });
    // The outer bound holds for a window that is too large: the right end of the screen, and its top.
    const QPoint last(screen.x() + screen.width() - window.width(),
                      screen.y() + screen.height() - window.height());
    return {std::min(std::max(window.x(), screen.x()), last.x()),
            std::max(std::min(window.y(), last.y()), screen.y())};
}

QVector<QRect> availableScreens() {
    QVector<QRect> screens;
    for (const QScreen *screen : QGuiApplication::screens())
        screens += screen->availableGeometry();
    return screens;
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
    const QPoint place = wholeOnAScreen(m_window.geometry(), availableScreens());
    if (place != m_window.pos())
        m_window.move(place);
}

} // namespace vexa
