// SPDX-License-Identifier: MIT
#include "app/FocusInSight.h"

#include "app/OnScreen.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWidget>
#include <QQuickWindow>

namespace vexa {

namespace {

constexpr int surroundings = 24; // points around a control, with which its ring and its name are seen

} // namespace

FocusInSight::FocusInSight(QQuickWidget &view) : QObject(&view), m_view(view) {
    connect(view.quickWindow(), &QQuickWindow::activeFocusItemChanged, this, &FocusInSight::follow);
}

void FocusInSight::follow() {
    const QQuickItem *const control = m_view.quickWindow()->activeFocusItem();
    QWidget &window = *m_view.window();
    if (!control || !control->activeFocusOnTab() || !window.isVisible() ||
        QGuiApplication::mouseButtons() != Qt::NoButton)
        return;
    const QRect inView = control->mapRectToScene(control->boundingRect()).toAlignedRect();
    const QRect seen =
        inView.adjusted(-surroundings, -surroundings, surroundings, surroundings) & m_view.rect();
    const QRect onDesktop(m_view.mapToGlobal(seen.topLeft()), seen.size());
    const QPoint travel = wholeOnAScreen(onDesktop, availableScreens()) - onDesktop.topLeft();
    if (!travel.isNull())
        window.move(window.pos() + travel);
}

} // namespace vexa
