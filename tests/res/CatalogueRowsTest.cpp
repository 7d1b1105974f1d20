// SPDX-License-Identifier: MIT
#include "res/ExpectedRows.h"

#include <QSet>
#include <QTest>

namespace {

QVector<TsRow> rowsOf(Catalogue catalogue) {
    return readTsFile(QStringLiteral(CATALOGUE_DIR "/lang_%1.ts").arg(catalogueName(catalogue)));
}

QStringList sorted(const QVector<TsRow> &rows) {
    QStringList lines;
    for (const TsRow &row : rows)
        lines.append(row.context + " | " + row.source + " | " + row.translation);
    lines.sort();
    return lines;
}

} // namespace

/// The rows of the catalogues' sources, compared with the agreed wording.
class CatalogueRowsTest : public QObject {
    Q_OBJECT

private slots:
    void theCatalogueHasExactlyTheAgreedRows_data() { everyCatalogue(); }
    void theCatalogueHasExactlyTheAgreedRows() {
        QFETCH(int, catalogue);
        QCOMPARE(sorted(rowsOf(Catalogue(catalogue))), sorted(expectedRows(Catalogue(catalogue))));
    }

    void noRowIsUnfinished() {
        for (const Catalogue catalogue : catalogues)
            for (const TsRow &row : rowsOf(catalogue))
                QVERIFY2(row.type.isEmpty(), qPrintable(row.context + ": " + row.source + " is " + row.type));
    }

    /// A row that goes from the wording and from a catalogue together is missed here.
    void thereAre433RowsOf73TextsIn33Contexts() {
        QVector<int> rowCounts;
        QSet<QString> texts;
        QSet<QString> contexts;
        for (const Catalogue catalogue : catalogues) {
            const QVector<TsRow> rows = rowsOf(catalogue);
            rowCounts.append(rows.size());
            for (const TsRow &row : rows) {
                texts.insert(row.source);
                contexts.insert(row.context);
            }
        }
        QCOMPARE(rowCounts, (QVector<int>{151, 142, 140}));
        QCOMPARE(texts.size(), 73);
        QCOMPARE(contexts.size(), 33);
    }
};

QTEST_GUILESS_MAIN(CatalogueRowsTest)
#include "CatalogueRowsTest.moc"
