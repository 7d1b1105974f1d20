// SPDX-License-Identifier: MIT
#include "support/Resolution.h"

#include <QProcess>
#include <QSize>

namespace vexa::test {

namespace {

void xrandr(const QString &arguments) {
    QProcess::execute(QStringLiteral("xrandr"), arguments.split(' '));
}

QString nameOf(const QSize &pixels) {
    return QStringLiteral("%1x%2").arg(pixels.width()).arg(pixels.height());
}

/// The four edges along one axis, from the end of the picture to the end of the line or the frame. They mean
/// nothing to a server without a monitor, but have to differ.
QString timingsOf(int length) {
    return QStringLiteral("%1 %2 %3 %4").arg(length).arg(length + 1).arg(length + 5).arg(length + 28);
}

} // namespace

void addResolution(const QSize &pixels) {
    const QString name = nameOf(pixels);
    xrandr(QStringLiteral("--newmode %1 40 %2 %3")
               .arg(name, timingsOf(pixels.width()), timingsOf(pixels.height())));
    xrandr(QStringLiteral("--addmode screen ") + name);
}

void setResolution(const QSize &pixels) {
    xrandr(QStringLiteral("--output screen --mode ") + nameOf(pixels));
}

} // namespace vexa::test
