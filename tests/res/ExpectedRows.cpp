// SPDX-License-Identifier: MIT
#include "res/ExpectedRows.h"

#include "res/Wording.h"

#include <QPair>
#include <QSet>
#include <QTest>

namespace {

// Texts that the Simplified Chinese catalogue lacks: all read the same without their row.
bool missingInSimplified(const QString &context, const QString &source) {
    using Row = QPair<QString, QString>;
    static const QSet<Row> missing{
        {"MainWindow", "Key 1"},         {"MainWindow", "Key 2"},      {"MainWindow", "Key 3"},
        {"MainWindow", "Key 4"},         {"MainWindow", "VexaOrbilo"}, {"SetWindow", "版本"},
        {"PromptWindow", "Form"},        {"promptwindow2", "Form"},    {"promptwindow2", "TextLabel"},
        {"blackBoardform", "TextLabel"},
    };
    return missing.contains(Row(context, source));
}

QString simplified(const QString &context, const QString &source) {
    if (context == "SetWindow" && source == "2.0.0.0")
        return "2.1.0.210527";
    if (context == "About" && source == "版本 1.0")
        return "版本 2.0.0.0";
    return source;
}

QStringList contextsOf(const char *contexts) {
    return QString::fromUtf8(contexts).split(' ');
}

} // namespace

QVector<TsRow> expectedRows(Catalogue catalogue) {
    QVector<TsRow> rows;
    for (const Wording &wording : wordings()) {
        const QString source = wording.source;
        for (const QString &context : contextsOf(wording.contexts)) {
            if (catalogue == Catalogue::English && wording.english)
                rows.append({context, source, wording.english, {}});
            if (catalogue == Catalogue::Traditional && wording.traditional)
                rows.append({context, source, wording.traditional, {}});
            if (catalogue == Catalogue::Simplified && !missingInSimplified(context, source))
                rows.append({context, source, simplified(context, source), {}});
        }
    }
    for (const Inert &inert : inertRows()) {
        const QString source = inert.source;
        for (const QString &context : contextsOf(inert.contexts)) {
            if (catalogue == Catalogue::Simplified && missingInSimplified(context, source))
                continue;
            const bool toItself = catalogue == Catalogue::Simplified && context == "PizhuForm";
            rows.append({context, source, toItself ? source : QString(), {}});
        }
    }
    return rows;
}

QString catalogueName(Catalogue catalogue) {
    return QStringList{"En", "Cn", "Tw"}.at(int(catalogue));
}

void everyCatalogue() {
    QTest::addColumn<int>("catalogue");
    for (const Catalogue catalogue : catalogues)
        QTest::newRow(qPrintable(catalogueName(catalogue))) << int(catalogue);
}
