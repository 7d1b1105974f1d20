// SPDX-License-Identifier: MIT
#include "packaging/DesktopEntry.h"

#include <QFile>

#include <optional>

namespace {

QByteArray unescaped(const QByteArray &raw) {
    static const QMap<char, char> escapes{{'s', ' '}, {'n', '\n'}, {'t', '\t'}, {'r', '\r'}, {'\\', '\\'}};
    QByteArray text;
    for (int i = 0; i < raw.size(); ++i)
        if (raw[i] == '\\' && i + 1 < raw.size() && escapes.contains(raw[i + 1]))
            text.append(escapes.value(raw[++i]));
        else
            text.append(raw[i]);
    return text;
}

/// A field code stands for files, which a session start has none of; only the percent sign is text.
bool takeFieldCode(const QByteArray &line, int &at, QByteArray &word) {
    if (at + 1 >= line.size())
        return false;
    const char code = line[++at];
    if (code == '%')
        word.append('%');
    return QByteArray("%fFuUick").contains(code);
}

/// Reads from behind an opening quote up to the closing one.
bool takeQuoted(const QByteArray &line, int &at, QByteArray &word) {
    for (; at < line.size(); ++at) {
        const char c = line[at];
        if (c == '"')
            return true;
        if (c == '`' || c == '$')
            return false; // must be escaped
        if (c == '%') {
            if (!takeFieldCode(line, at, word))
                return false;
        } else if (c == '\\') {
            if (++at >= line.size() || !QByteArray("\"`$\\").contains(line[at]))
                return false;
            word.append(line[at]);
        } else {
            word.append(c);
        }
    }
    return false;
}

std::optional<QByteArrayList> words(const QByteArray &line) {
    static const QByteArray reserved = "\t\n'\\><~|&;$*?#()`";
    QByteArrayList found;
    QByteArray word;
    bool open = false;
    for (int at = 0; at < line.size(); ++at) {
        const char c = line[at];
        if (c == ' ') {
            if (open)
                found.append(word);
            word.clear();
            open = false;
            continue;
        }
        if (reserved.contains(c))
            return std::nullopt; // only inside quotes
        if (c == '"') {
            if (open || !takeQuoted(line, ++at, word))
                return std::nullopt; // a word is quoted whole
        } else if (c == '%') {
            if (!takeFieldCode(line, at, word))
                return std::nullopt;
        } else {
            word.append(c);
        }
        open = true;
    }
    if (open)
        found.append(word);
    return found;
}

} // namespace

DesktopEntry::DesktopEntry(const QString &fileName) {
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly) || file.readLine() != "[Desktop Entry]\n")
        return;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine();
        const int equals = line.indexOf('=');
        if (equals <= 0 || !line.endsWith('\n')) {
            m_values.clear();
            return;
        }
        m_values.insert(line.left(equals), line.mid(equals + 1).chopped(1));
    }
}

QByteArray DesktopEntry::value(const QByteArray &key) const {
    return unescaped(m_values.value(key));
}

QByteArrayList DesktopEntry::command() const {
    return words(value("Exec")).value_or(QByteArrayList());
}
