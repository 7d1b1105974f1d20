// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// The folders with the program's own sources, and the files below them (C++, forms, views), for the tests
/// that look for texts and names in them. Never none.
QStringList sourceFolders();
QStringList sourceFiles();

/// The whole text of a UTF-8 file; empty when it cannot be read.
QString fileText(const QString &fileName);

/// All captures of the first group of `pattern` in `text`, without repetition.
QStringList captures(const QString &text, const QString &pattern);
