// SPDX-License-Identifier: MIT
#include "app/WindowDrag.h"

#include <QMouseEvent>
#include <QWidget>

namespace vexa {

// In screen coordinates: in the window's own, each move of the window would look like a move of the pointer.

void WindowDrag::press(const QMouseEvent &event) {
    if (event.button() == Qt::LeftButton)
        m_last = event.screenPos().toPoint();
}

void WindowDrag::move(const QMouseEvent &event) {
    if (!m_last)
        return;
    const QPoint now = event.screenPos().toPoint();
    m_window.move(m_window.pos() + now - *m_last);
    m_last = now;
}

void WindowDrag::release(const QMouseEvent &event) {
    if (event.button() == Qt::LeftButton)
        m_last.reset();
}

} // namespace vexa
