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
    QCoreApplication::exit(m_exitCode);
}

void QuitRequest::fail() {
    m_exitCode = EXIT_FAILURE;
    request();
}

int QuitRequest::run() {
    return m_requested ? m_exitCode : QApplication::exec();
}

// By default the toolkit closes every window and cancels the quit when one refuses, as the panel does. Which
// of the two events carries the system's request depends on the toolkit's version.
bool QuitRequest::eventFilter(QObject *watched, QEvent *event) {
    const bool asked = event->type() == QEvent::Quit || event->type() == QEvent::Close;
    if (watched != QCoreApplication::instance() || !asked)
        return false;
    event->accept();
    request();
    return true;
}

} // namespace vexa
