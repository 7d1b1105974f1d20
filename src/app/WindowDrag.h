// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>

#include <optional>

class QMouseEvent;
class QWidget;

namespace vexa {

/// Lets the user drag a frameless window with the left button. The window forwards its mouse events; it is
/// not owned. GUI thread.
class WindowDrag {
public:
    explicit WindowDrag(QWidget &window) : m_window(window) {}

    void press(const QMouseEvent &event);
    void move(const QMouseEvent &event);
    void release(const QMouseEvent &event);

private:
    QWidget &m_window;
    std::optional<QPoint> m_last; ///< the pointer on the screen at the last event, while dragging
};

} // namespace vexa
