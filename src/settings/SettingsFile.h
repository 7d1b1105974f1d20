// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// How the settings reach the disk and come back, whatever lies at their place. Nothing here fails visibly.
/// GUI thread.
namespace vexa {

enum class FileAccess {
    NotOpened, ///< there is no such file, or it cannot be opened for reading
    Refused,   ///< something is there, but nothing that can be a settings file: too large, or not a regular
               ///< file
    Read,
};

struct FileContent {
    FileAccess access = FileAccess::NotOpened;
    QByteArray bytes; ///< empty unless access is Read
};

/// Never blocks, and never takes in more than a settings file may have.
FileContent readSettingsFile(const QString &path);

/// Replaces the file whole: whenever the process ends, the old or the new content is there. A file that
/// cannot be written is left alone, and so is anything but a regular file. With `keepOld` the old content is
/// kept beside the file with ".bad" added to its name, where the folder takes one more file. False when the
/// file was left alone.
///
/// Waits for a slow disk no longer than a frame takes: what has been written is there for every process to
/// read, and comes to the disk in the background, at the latest when this process ends.
bool replaceSettingsFile(const QString &path, const QByteArray &bytes, bool keepOld);

} // namespace vexa
