// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QWidget;

namespace vexa {

/// Tells a widget where in it the pointer is while its window is dragged along, by where the pointer is on
/// the screen and where the window was sent. Without it the place is the one that the desktop found when the
/// pointer moved; a window manager that moves windows later than it is asked has let more moves pass by then,
/// and a widget that moves its window by what it reads moves it twice. Moves without a button stay as they
/// are. A child of its widget. GUI thread.
class PointerInMovedWindow : public QObject {
public:
    explicit PointerInMovedWindow(QWidget &widget);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget &m_widget;
};

} // namespace vexa
