// SPDX-License-Identifier: MIT
#include "app/Screenshots.h"

#include "overlays/ScreenPicture.h"

#include <QDir>
#include <QFileInfo>
#include <QPixmap>
#include <utility>

namespace vexa {

Screenshots::Screenshots(Clock clock) : m_clock(std::move(clock)) {}

void Screenshots::take() {
    // The clock is read twice on purpose: a shot at midnight may name a file of the new day in the old day's
    // folder.
    const QString folder = QDir::homePath() + QLatin1String("/Desktop/Vexa Orbilo/") +
                           m_clock().toString(QStringLiteral("yyyyMMdd"));
    const QString path =
        folder + '/' + m_clock().toString(QStringLiteral("yyyyMMddhhmmss")) + QLatin1String(".png");
    if (!QFileInfo::exists(folder))
        makeFolder(folder);
    m_writer.write(path, pictureOfPrimaryScreen().toImage());
}

QString Screenshots::makeFolder(const QString &path) {
    if (path.isEmpty() || QFileInfo::exists(path))
        return path;
    const int slash = path.lastIndexOf('/');
    if (slash < 0) {
        QDir().mkpath(path);
        return path;
    }
    const QString name = path.mid(slash + 1);
    const QString parent = makeFolder(path.left(slash));
    if (!name.isEmpty())
        QDir(parent + '/').mkpath(name);
    return parent + '/' + name;
}

} // namespace vexa
