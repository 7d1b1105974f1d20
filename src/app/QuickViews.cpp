// SPDX-License-Identifier: MIT
#include "app/QuickViews.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QQuickWidget>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QUrl>

namespace vexa {

namespace {

constexpr const char *cacheSwitch = "QML_DISABLE_DISK_CACHE";

bool openGlWorks() {
    QOpenGLContext context;
    if (!context.create())
        return false;
    QOffscreenSurface surface;
    surface.create();
    return context.makeCurrent(&surface);
}

} // namespace

void chooseRenderer(bool graphicsCard) {
    if (!QQuickWindow::sceneGraphBackend().isEmpty())
        return;
    if (graphicsCard) {
        if (openGlWorks())
            return;
        qWarning("OpenGL cannot be used; the panel is drawn in software");
    }
    QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
}

void loadView(QQuickWidget &widget, const QString &address) {
    // This variable is the only way to turn the cache off, and is read once, with the first document. It is
    // restored so that the programs that this one starts do not inherit it.
    const bool given = qEnvironmentVariableIsSet(cacheSwitch);
    const QByteArray value = qgetenv(cacheSwitch);
    qputenv(cacheSwitch, "1");
    widget.setSource(QUrl(address));
    if (given)
        qputenv(cacheSwitch, value);
    else
        qunsetenv(cacheSwitch);
}

} // namespace vexa
