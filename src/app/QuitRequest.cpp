// SPDX-License-Identifier: MIT
#include "app/QuitRequest.h"

#include <QApplication>
#include <QEvent>

namespace vexa {

QuitRequest::QuitRequest() {
    QCoreApplication::instance()->installEventFilter(this);
}

void QuitRequest::request() {
    m_requested = true;
    QCoreApplication::quit();
}

int QuitRequest::run() {
    return m_requested ? 0 : QApplication::exec();
}

bool QuitRequest::eventFilter(QObject *watched, QEvent *event) {
    if (watched == QCoreApplication::instance() && event->type() == QEvent::Quit)
        m_requested = true;
    return false;
}

} // namespace vexa
