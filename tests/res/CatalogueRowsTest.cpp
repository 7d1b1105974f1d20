// SPDX-License-Identifier: MIT
#include "res/ExpectedRows.h"
#include "res/Wording.h"

#include <QSet>
#include <QtTest>

namespace {

QVector<TsRow> rowsOf(Catalogue catalogue) {
    return readTsFile(QStringLiteral(CATALOGUE_DIR "/lang_%1.ts").arg(catalogueName(catalogue)));
}

int rowsOfContext(const QVector<TsRow> &rows, const QString &context) {
    return int(
        std::count_if(rows.begin(), rows.end(), [&](const TsRow &row) { return row.context == context; }));
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
    void eachContextHasItsNumberOfRows_data() {
        QTest::addColumn<QString>("context");
        QTest::addColumn<QVector<int>>("expected");
        for (const Count &count : counts())
            QTest::newRow(count.context)
                << QString(count.context) << QVector<int>{count.english, count.simplified, count.traditional};
        QTest::newRow("all contexts") << QString() << QVector<int>{151, 142, 140};
    }
    void eachContextHasItsNumberOfRows() {
        QFETCH(QString, context);
        QFETCH(QVector<int>, expected);
        QVector<int> actual;
        for (Catalogue catalogue : catalogues) {
            const QVector<TsRow> rows = rowsOf(catalogue);
            actual.append(context.isEmpty() ? rows.size() : rowsOfContext(rows, context));
        }
        QCOMPARE(actual, expected);
    }

    void noContextIsUnknown() {
        QSet<QString> known;
        for (const Count &count : counts())
            known.insert(count.context);
        QCOMPARE(known.size(), 33);
        for (Catalogue catalogue : catalogues)
            for (const TsRow &row : rowsOf(catalogue))
                QVERIFY2(known.contains(row.context), qPrintable(row.context));
    }

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

    void thereAre433RowsOf73Texts() {
        int rowCount = 0;
        QSet<QString> texts;
        for (Catalogue catalogue : catalogues) {
            for (const TsRow &row : rowsOf(catalogue)) {
                ++rowCount;
                texts.insert(row.source);
            }
        }
        QCOMPARE(rowCount, 433);
        QCOMPARE(texts.size(), 73);
    }
};

QTEST_GUILESS_MAIN(CatalogueRowsTest)
#include "CatalogueRowsTest.moc"
