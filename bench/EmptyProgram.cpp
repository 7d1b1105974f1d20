// SPDX-License-Identifier: MIT
//
// empty-program: a window with a view of the panel's imports and nothing in it, that hides itself like the
// panel and stays: what a program of this toolkit costs before it does anything.
#include <QApplication>
#include <QQuickWidget>
#include <QTimer>

int main(int argc, char *argv[]) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QQuickWidget view(QUrl::fromLocalFile(QStringLiteral(EMPTY_PANEL)));
    view.show();
    QTimer::singleShot(500, &view, &QWidget::hide);
    return QApplication::exec();
}
