// SPDX-License-Identifier: MIT
#include "overlays/BrushPicture.h"

#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QPixmapCache>
#include <QScreen>

namespace vexa {
namespace {

QPixmap decoded(const QString &file, qreal scale) {
    // As an image: a pixmap of that name would be the larger one by itself, but not at every scale above 1.
    const QImage plain(file);
    if (scale <= 1)
        return QPixmap::fromImage(plain);
    const QString ending = QStringLiteral(".png");
    QImage fitting(file.chopped(ending.size()) + QStringLiteral("@2x") + ending);
    fitting = fitting.scaled((QSizeF(plain.size()) * scale).toSize(), Qt::IgnoreAspectRatio,
                             Qt::SmoothTransformation);
    fitting.setDevicePixelRatio(scale);
    return QPixmap::fromImage(fitting);
}

} // namespace

/// Prompts that stay share their picture with those that come and go with a tool, which would wait for it.
QBrush brushPicture(const QString &file) {
    const qreal scale = QGuiApplication::primaryScreen()->devicePixelRatio();
    const QString name = QStringLiteral("%1 %2").arg(file).arg(scale);
    QPixmap picture;
    if (!QPixmapCache::find(name, &picture)) {
        picture = decoded(file, scale);
        QPixmapCache::insert(name, picture);
    }
    return picture;
}

} // namespace vexa
