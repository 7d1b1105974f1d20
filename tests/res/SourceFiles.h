// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// The program's own sources (C++, forms, views), for the tests that look for texts and names in them.
QStringList sourceFiles(const QString &folder);

/// The whole text of a UTF-8 file; empty when it cannot be read.
QString fileText(const QString &fileName);

/// All captures of the first group of `pattern` in `text`, without repetition.
QStringList captures(const QString &text, const QString &pattern);
