// SPDX-License-Identifier: MIT
#include "overlays/MouseHold.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

namespace vexa {

bool MouseHold::isExposed() const {
    return m_window.windowHandle() && m_window.windowHandle()->isExposed();
}

void MouseHold::take() {
    m_held = true;
    if (!isExposed())
        QCoreApplication::instance()->installEventFilter(this);
    renew();
}

void MouseHold::takeByPress() {
    m_held = true;
    m_window.grabMouse();
}

void MouseHold::give() {
    if (!m_held)
        return;
    m_held = false;
    QCoreApplication::instance()->removeEventFilter(this);
    m_window.releaseMouse();
}

void MouseHold::renew() {
    if (m_held && QWidget::mouseGrabber() != &m_window && QGuiApplication::mouseButtons() == Qt::NoButton)
        m_window.grabMouse();
}

void MouseHold::rest() {
    if (m_held && QWidget::mouseGrabber() == &m_window && QGuiApplication::mouseButtons() == Qt::NoButton)
        m_window.releaseMouse();
}

/// Sees the events of the whole application until the window is exposed: they are handled in the order in
/// which the system sent them, so whatever comes before the exposure is older than the window.
bool MouseHold::eventFilter(QObject *watched, QEvent *event) {
    const bool isOwn = watched == m_window.windowHandle();
    if (isOwn && event->type() == QEvent::Expose && isExposed()) {
        QCoreApplication::instance()->removeEventFilter(this);
        m_window.releaseMouse();
        renew();
    }
    if (!isOwn && watched->isWindowType() && event->type() == QEvent::MouseButtonPress)
        m_window.releaseMouse();
    return QObject::eventFilter(watched, event);
}

} // namespace vexa
