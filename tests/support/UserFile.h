// SPDX-License-Identifier: MIT
#pragma once

#include "settings/ZrToolXmlClass.h"

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

inline bool write(const QByteArray &bytes) {
    QFile file(path());
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
    ZrToolXmlClass::Key2P = 1;
    ZrToolXmlClass::Key3P = 3;
    ZrToolXmlClass::Key4C = 4;
    ZrToolXmlClass::Key4P = 2;
    ZrToolXmlClass::PenColor0 = 0;
    ZrToolXmlClass::PenColor1 = 1;
    ZrToolXmlClass::PenColor2 = 2;
    ZrToolXmlClass::PenThickness = 0;
    ZrToolXmlClass::LaserPenSize = 200;
    ZrToolXmlClass::LaserPenColor = 0;
    ZrToolXmlClass::MagnifierSize = 200;
    ZrToolXmlClass::MagnifierColor = 0;
    ZrToolXmlClass::SportLightSize = 200;
    ZrToolXmlClass::SportLightTran = 175;
    ZrToolXmlClass::AutoStart = 0;
    ZrToolXmlClass::Language = 2;
    ZrToolXmlClass::ShowPrivacyWindow = 1;
    ZrToolXmlClass::ifirstRun = false;
}

} // namespace vexa::test::userfile
