// SPDX-License-Identifier: MIT
#include "res/TsFile.h"

#include <QDebug>
#include <QFile>
#include <QXmlStreamReader>

namespace {

TsRow readMessage(QXmlStreamReader &xml, const QString &context) {
    TsRow row{context, {}, {}, {}};
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("source")) {
            row.source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            row.type = xml.attributes().value(QLatin1String("type")).toString();
            row.translation = xml.readElementText(QXmlStreamReader::SkipChildElements);
        } else {
            xml.skipCurrentElement();
        }
    }
    return row;
}

void readContext(QXmlStreamReader &xml, QVector<TsRow> &rows) {
    QString name;
    while (xml.readNextStartElement())
        if (xml.name() == QLatin1String("name"))
            name = xml.readElementText();
        else if (xml.name() == QLatin1String("message"))
            rows.append(readMessage(xml, name));
        else
            xml.skipCurrentElement();
}

} // namespace

QVector<TsRow> readTsFile(const QString &fileName) {
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning() << "cannot read" << fileName;
        return {};
    }
    QXmlStreamReader xml(&file);
    QVector<TsRow> rows;
    if (xml.readNextStartElement()) {
        while (xml.readNextStartElement())
            if (xml.name() == QLatin1String("context"))
                readContext(xml, rows);
            else
                xml.skipCurrentElement();
    }
    if (xml.hasError()) {
        qWarning() << fileName << xml.lineNumber() << xml.errorString();
        return {};
    }
    return rows;
}
