// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <QRect>
#include <QVector>

class QWidget;

namespace vexa {

/// Where to move a window's top-left corner so that it is wholly on one screen with the shortest move: on the
/// screen that shows most of it now, or on the nearest one if none shows any. A window that is larger than
/// that screen is aligned with the screen's top-right corner, because its close button is there. All in
/// points of the desktop; without any screen the window stays where it is.
QPoint wholeOnAScreen(const QRect &window, const QVector<QRect> &screens);

/// What the desktop's own panels leave of each screen.
QVector<QRect> availableScreens();

/// Keeps a window reachable: moves it wholly onto a screen whenever it is shown, and when the screens change
/// while it is visible. In between, the user may drag it anywhere. Owned by its window. GUI thread.
class OnScreen : public QObject {
public:
    explicit OnScreen(QWidget &window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void place();
    void placeIfShown();

    QWidget &m_window;
};

} // namespace vexa
