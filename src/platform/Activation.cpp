// SPDX-License-Identifier: MIT
#include "platform/Activation.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>

QWidget *Window1 = nullptr;

namespace vexa::platform {

namespace {

bool missedActivation = false;

/// Shows its window again the next time it hides.
class ShowAgain : public QObject {
public:
    explicit ShowAgain(QWidget *window) : QObject(window) { window->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override {
        if (event->type() == QEvent::Hide) {
            watched->removeEventFilter(this);
            deleteLater();
            QTimer::singleShot(0, watched, activateWindow);
        }
        return false;
    }
};

} // namespace

void activateWindow() {
    if (!Window1) {
        missedActivation = true;
        return;
    }
    Window1->setWindowState(Window1->windowState() & ~Qt::WindowMinimized);
    Window1->show();
    Window1->raise();
    Window1->activateWindow();
}

void resumeMissedActivation() {
    if (!missedActivation || !Window1)
        return;
    missedActivation = false;
    new ShowAgain(Window1);
}

} // namespace vexa::platform
