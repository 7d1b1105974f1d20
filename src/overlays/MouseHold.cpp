// SPDX-License-Identifier: MIT
#include "overlays/MouseHold.h"

#include <QEvent>
#include <QWidget>
#include <QWindow>

namespace vexa {

MouseHold::MouseHold(QWidget &window) : m_window(window) {
    m_window.installEventFilter(this);
}

void MouseHold::take() {
    m_held = true;
    m_window.grabMouse();
}

void MouseHold::give() {
    if (!m_held)
        return;
    m_held = false;
    m_window.releaseMouse();
}

bool MouseHold::eventFilter(QObject *watched, QEvent *event) {
    QWindow *native = m_window.windowHandle();
    if (watched == &m_window && event->type() == QEvent::Show)
        native->installEventFilter(this);
    if (watched == native && event->type() == QEvent::Expose && native->isExposed()) {
        native->removeEventFilter(this);
        if (m_held)
            m_window.grabMouse();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace vexa
