// SPDX-License-Identifier: MIT
#include "app/Screenshots.h"

#include "overlays/ScreenPicture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QPixmap>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace vexa {

namespace {

/// Whether a path that was decoded from the name leads to the folder of that name. It does not when the name
/// holds bytes that are invalid in the encoding of file names. Comparing the bytes would not tell: macOS
/// composes accented letters when names are decoded and decomposes them when they are encoded.
bool reaches(const QByteArray &name, const QString &path) {
    struct stat named {};
    struct stat reached {};
    return stat(name.constData(), &named) == 0 && stat(QFile::encodeName(path).constData(), &reached) == 0 &&
           S_ISDIR(reached.st_mode) && named.st_dev == reached.st_dev && named.st_ino == reached.st_ino;
}

/// The user's home folder: from the environment, or else from the system's user database. Empty when neither
/// is an existing folder with a name that can be decoded: otherwise a misread name, or a home that does not
/// exist, would make a new folder elsewhere.
QString homeFolder() {
    const passwd *const user = getpwuid(getuid());
    for (const QByteArray &name : {qgetenv("HOME"), QByteArray(user ? user->pw_dir : "")}) {
        QString home = QFile::decodeName(name);
        if (QDir::isAbsolutePath(home) && reaches(name, home))
            return home;
    }
    return {};
}

/// In the digits 0 to 9, whatever those of the user's language are.
QString inPlainDigits(const QDateTime &time, const char *format) {
    return QLocale::c().toString(time, QLatin1String(format));
}

} // namespace

Screenshots::Screenshots(Clock clock) : m_clock(std::move(clock)) {}

void Screenshots::take() {
    // The clock is read twice on purpose: a shot at midnight may name a file of the new day in the old day's
    // folder.
    const QString home = homeFolder();
    const QString folder =
        home + QLatin1String("/Desktop/Vexa Orbilo/") + inPlainDigits(m_clock(), "yyyyMMdd");
    const QString path = folder + '/' + inPlainDigits(m_clock(), "yyyyMMddhhmmss") + QLatin1String(".png");
    if (home.isEmpty())
        return;
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
