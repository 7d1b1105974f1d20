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

// The toolkit's own answer would be to close every window and to stay when one refuses, as the panel does.
// Which of the two events a system's quit arrives as depends on the toolkit's release.
bool QuitRequest::eventFilter(QObject *watched, QEvent *event) {
    const bool asked = event->type() == QEvent::Quit || event->type() == QEvent::Close;
    if (watched != QCoreApplication::instance() || !asked)
        return false;
    event->accept();
    request();
    return true;
}

} // namespace vexa
