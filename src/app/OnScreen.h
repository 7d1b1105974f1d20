// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <QRect>
#include <QVector>

class QWidget;

namespace vexa {

/// The nearest place for the top-left corner of a window at which a screen shows all of it: of the screen
/// that shows most of it now, or else of the nearest one. A window that is larger than the screen keeps its
/// top-right corner on it: what closes it is there. All in points of the desktop; without any screen the
/// window stays where it is.
QPoint wholeOnAScreen(const QRect &window, const QVector<QRect> &screens);

/// Keeps a window reachable: whenever it is shown, and when the screens change while it is visible, it is
/// moved to where a screen shows all of it. Where the user drags it, it stays until then. A child of its
/// window. GUI thread.
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
