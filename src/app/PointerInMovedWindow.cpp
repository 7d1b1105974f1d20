// SPDX-License-Identifier: MIT
#include "app/PointerInMovedWindow.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>

namespace vexa {

PointerInMovedWindow::PointerInMovedWindow(QWidget &widget) : QObject(&widget), m_widget(widget) {
    widget.installEventFilter(this);
}

bool PointerInMovedWindow::eventFilter(QObject *watched, QEvent *event) {
    if (watched != &m_widget || event->type() != QEvent::MouseMove)
        return false;
    const auto &move = static_cast<const QMouseEvent &>(*event);
    const QWidget &window = *m_widget.window();
    const QPointF inWindow = move.screenPos() - window.geometry().topLeft();
    const QPointF place = inWindow - m_widget.mapTo(&window, QPoint());
    if (move.buttons() == Qt::NoButton || place == move.localPos())
        return false;
    QMouseEvent placed(move.type(), place, inWindow, move.screenPos(), move.button(), move.buttons(),
                       move.modifiers(), move.source());
    placed.setTimestamp(move.timestamp());
    QCoreApplication::sendEvent(&m_widget, &placed);
    return true;
}

} // namespace vexa
