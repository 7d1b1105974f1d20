// SPDX-License-Identifier: MIT
#pragma once

#include "support/StoredSettings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

/// The settings file beside the test program, and the settings in memory. Such a program is made with
/// OWN_FOLDER.
namespace vexa::test::userfile {

inline QString path() {
    return QCoreApplication::applicationDirPath() + QStringLiteral("/VexaPenSetting.xml");
}
inline QString badPath() {
    return path() + QStringLiteral(".bad");
}

inline bool write(const QByteArray &bytes, const QString &name = path()) {
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// Null when there is no such file.
inline QByteArray read(const QString &name = path()) {
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Removes whatever lies at the file's place, and what was kept aside.
inline void clear() {
    for (const QString &name : {path(), badPath()}) {
        const QFileInfo info(name);
        if (info.isDir() && !info.isSymLink())
            QDir(name).removeRecursively();
        else
            QFile::remove(name);
    }
}

/// Gives every setting the value it has when the process starts.
inline void forgetSettings() {
    for (const StoredSetting &setting : storedSettings)
        *setting.value = setting.atStart;
    ZrToolXmlClass::ifirstRun = false;
}

/// As before the first start: no file, and nothing read.
inline void startAfresh() {
    clear();
    forgetSettings();
}

} // namespace vexa::test::userfile
