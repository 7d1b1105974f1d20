// SPDX-License-Identifier: MIT
#include "platform/Activation.h"

#include <QEvent>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <utility>

QWidget *Window1 = nullptr;

namespace vexa::platform {

namespace {

bool cameEarly = false;
QPointer<QObject> pendingWithdrawal;

/// Waits until its window hides for the first time.
class Withdrawal : public QObject {
public:
    explicit Withdrawal(QWidget *window) : QObject(window) { window->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override {
        if (event->type() == QEvent::Hide) {
            watched->removeEventFilter(this);
            deleteLater();
            pendingWithdrawal = nullptr;
            if (std::exchange(cameEarly, false))
                QTimer::singleShot(0, watched, activateWindow);
        }
        return false;
    }
};

} // namespace

void activateWindow() {
    if (!Window1 || pendingWithdrawal)
        cameEarly = true;
    if (!Window1)
        return;
    // A window that counts as shown may be on another desktop, off every screen or unmapped by someone else.
    // Shown anew it comes to where the user is.
    if (!pendingWithdrawal)
        Window1->hide();
    Window1->setWindowState(Window1->windowState() & ~Qt::WindowMinimized);
    Window1->show();
    Window1->raise();
    Window1->activateWindow();
}

void awaitWithdrawal() {
    pendingWithdrawal = new Withdrawal(Window1);
}

} // namespace vexa::platform
