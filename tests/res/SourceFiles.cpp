// SPDX-License-Identifier: MIT
#include "res/SourceFiles.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

QStringList sourceFolders() {
    return {SOURCE_ROOT "/src", SOURCE_ROOT "/qml"};
}

QStringList sourceFiles() {
    QStringList files;
    for (const QString &folder : sourceFolders()) {
        QDirIterator found(folder, {"*.cpp", "*.h", "*.ui", "*.qml", "*.js"}, QDir::Files,
                           QDirIterator::Subdirectories);
        if (!found.hasNext())
            qFatal("no sources in %s", qPrintable(folder));
        while (found.hasNext())
            files.append(found.next());
    }
    return files;
}

QString fileText(const QString &fileName) {
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList captures(const QString &text, const QString &pattern) {
    QStringList found;
    QRegularExpressionMatchIterator matches = QRegularExpression(pattern).globalMatch(text);
    while (matches.hasNext())
        found.append(matches.next().captured(1));
    found.removeDuplicates();
    return found;
}
