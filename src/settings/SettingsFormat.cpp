// SPDX-License-Identifier: MIT
#include "settings/SettingsFormat.h"

#include <QTextCodec>
#include <QTextStream>
#include <QXmlStreamReader>

#include <algorithm>
#include <cctype>

namespace vexa {

namespace {

constexpr int deepestNesting = 64;
constexpr int mostAttributes = 256; // of one tag
constexpr int indentation = 4;

/// The bytes of the text's ASCII characters, also when each of them has two or four.
QByteArray asciiOf(QByteArray bytes) {
    bytes.truncate(static_cast<int>(std::remove(bytes.begin(), bytes.end(), '\0') - bytes.begin()));
    return bytes;
}

/// The text as its own declaration has a reader decode it: in some encodings, such as UTF-7, an ASCII
/// character is written by other bytes than its own.
QByteArray decoded(const QByteArray &bytes) {
    QXmlStreamReader reader(bytes);
    reader.readNext();
    const QTextCodec *const declared = QTextCodec::codecForName(reader.documentEncoding().toLatin1());
    return declared ? declared->toUnicode(bytes).toUtf8() : bytes;
}

/// Whether some tag has more attributes than any settings have. The reader compares each with all the others.
bool hasCrowdedTag(const QByteArray &ascii) {
    int attributes = 0;
    bool afterEquals = false;
    for (const char c : ascii) {
        if (c == '<')
            attributes = 0;
        else if (afterEquals && (c == '"' || c == '\'') && ++attributes > mostAttributes)
            return true;
        afterEquals = c == '=' || (afterEquals && std::isspace(static_cast<unsigned char>(c)));
    }
    return false;
}

/// Small files on which a reader works for minutes, or which it blows up to many times their size: entities
/// that stand for long texts, attributes that every element gets by default, crowded tags.
bool isLaborious(const QByteArray &bytes) {
    const QByteArray ascii = asciiOf(bytes);
    return ascii.contains("<!ENTITY") || ascii.contains("<!ATTLIST") || hasCrowdedTag(ascii);
}

/// The document object model recurses over its nodes, so a deeply nested file would exhaust the stack. The
/// stream reader does not recurse: it looks first.
bool isSafeToParse(const QByteArray &bytes) {
    QXmlStreamReader reader(bytes);
    reader.setNamespaceProcessing(false);
    int depth = 0;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::StartElement && ++depth > deepestNesting)
            return false;
        if (token == QXmlStreamReader::EndElement)
            --depth;
    }
    return !reader.hasError();
}

QDomElement appendElement(QDomDocument &document, QDomNode parent, const QString &name) {
    return parent.appendChild(document.createElement(name)).toElement();
}

} // namespace

std::optional<QDomDocument> parseSettings(const QByteArray &bytes) {
    QDomDocument document;
    if (isLaborious(bytes) || isLaborious(decoded(bytes)) || !isSafeToParse(bytes) ||
        !document.setContent(bytes, false))
        return std::nullopt;
    return document;
}

SettingValues settingsIn(const QDomDocument &document, const SettingValues &otherwise) {
    SettingValues values = otherwise;
    // Neither the root's name nor that of its children matters, only the names below them.
    const QDomElement root = document.documentElement();
    for (QDomElement group = root.firstChildElement(); !group.isNull(); group = group.nextSiblingElement()) {
        for (QDomNode node = group.firstChild(); !node.isNull(); node = node.nextSibling())
            if (const Setting *setting = settingOfElement(node.nodeName()))
                values[indexOf(*setting)] = node.toElement().text().toInt();
    }
    return values;
}

bool firstRunIn(const QDomDocument &document) {
    return document.documentElement().attribute(QStringLiteral("FirstRun")).toInt() != 0;
}

QByteArray formatSettings(const SettingValues &values) {
    QDomDocument document;
    document.appendChild(document.createProcessingInstruction(
        QStringLiteral("xml"), QStringLiteral("version=\"1.0\" encoding=\"UTF-8\"")));
    QDomElement root = appendElement(document, document, QStringLiteral("PenSetting"));
    root.setAttribute(QStringLiteral("FirstRun"), 1);
    const QDomElement group = appendElement(document, root, QStringLiteral("Setting"));
    for (const Setting &setting : settingsTable) {
        appendElement(document, group, QLatin1String(setting.element))
            .appendChild(document.createTextNode(QString::number(values[indexOf(setting)])));
    }

    QByteArray bytes;
    QTextStream stream(&bytes);
    document.save(stream, indentation, QDomNode::EncodingFromDocument);
    stream.flush();
    return bytes;
}

} // namespace vexa
