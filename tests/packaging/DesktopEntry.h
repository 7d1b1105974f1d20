// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>
#include <QMap>

/// A desktop entry read the way a session reads it.
class DesktopEntry {
public:
    /// An entry without values when the file cannot be read or has a line that is none.
    explicit DesktopEntry(const QString &fileName);

    /// The value with its escapes (\s \n \t \r \\) resolved; empty when there is no such key.
    QByteArray value(const QByteArray &key) const;

    /// The words of the command line, quotes and field codes resolved; empty when it breaks a rule of
    /// quoting.
    QByteArrayList command() const;

private:
    QMap<QByteArray, QByteArray> m_values;
};
