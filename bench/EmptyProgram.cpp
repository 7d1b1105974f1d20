// SPDX-License-Identifier: MIT
//
// empty-program: a window with a view of the panel's imports and nothing in it, drawn as the panel is, that
// hides itself like the panel and stays: what a program of this toolkit costs before it does anything.
#include "app/QuickViews.h"
#include "platform/GraphicsCard.h"
#include "platform/Session.h"

#include <QApplication>
#include <QQuickWidget>
#include <QTimer>

int main(int argc, char *argv[]) {
    vexa::platform::prepareSession();
    QApplication application(argc, argv);
    vexa::platform::releaseEnvironment();
    vexa::chooseRenderer(vexa::platform::graphicsCardDraws());
    QApplication::setQuitOnLastWindowClosed(false);
    QQuickWidget view(QUrl::fromLocalFile(QStringLiteral(EMPTY_PANEL)));
    view.show();
    QTimer::singleShot(500, &view, &QWidget::hide);
    return QApplication::exec();
}
