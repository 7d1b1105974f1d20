// SPDX-License-Identifier: MIT
#include "settings/SettingsFile.h"

#include "base/BackgroundSync.h"
#include "base/FileReplacement.h"

#include <QFile>
#include <QFileInfo>

#include <chrono>
#include <functional>
#include <unistd.h>

namespace vexa {

namespace {

constexpr qint64 largestFile = qint64{1024} * 1024;
constexpr std::chrono::milliseconds frame{16};

/// The file stays in its place while it gains its second name, so that no moment is without it. A link, or a
/// file system that cannot give a file two names, has to be moved instead: true when that was done.
bool keepAside(const QString &path, const QString &aside) {
    QFile::remove(aside);
    if (!QFileInfo(path).isSymLink() &&
        link(QFile::encodeName(path).constData(), QFile::encodeName(aside).constData()) == 0)
        return false;
    return QFile::rename(path, aside);
}

} // namespace

FileContent readSettingsFile(const QString &path) {
    // Opening a pipe would wait for its writer, so what is not a file is never opened.
    const QFileInfo info(path);
    if (info.exists() && !info.isFile() && !info.isDir())
        return {FileAccess::Refused, {}};

    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray bytes = file.read(largestFile + 1);
    if (bytes.size() > largestFile)
        return {FileAccess::Refused, {}};
    return {FileAccess::Read, std::move(bytes)};
}

bool replaceSettingsFile(const QString &path, const QByteArray &bytes, bool keepOld) {
    const QFileInfo info(path);
    if (info.exists() && (!info.isFile() || !info.isWritable()))
        return false;
    // A folder that takes no second file does not keep the user's choice from being saved.
    const QString aside = path + QStringLiteral(".bad");
    const bool moved = info.exists() && keepOld && keepAside(path, aside);
    static BackgroundSync sync(frame);
    const bool replaced = replaceFile(path, bytes, std::ref(sync));
    if (moved && !replaced)
        QFile::rename(aside, path);
    return replaced;
}

} // namespace vexa
