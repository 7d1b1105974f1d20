// SPDX-License-Identifier: MIT
#include "res/SourceFiles.h"
#include "res/TsFile.h"

#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

/// Looks for texts in code, forms and views that no catalogue knows.
class SourceTextsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        const QDir catalogues(SOURCE_ROOT "/res/translations");
        for (const QString &name : catalogues.entryList({"*.ts"})) {
            for (const TsRow &row : readTsFile(catalogues.filePath(name))) {
                m_rows.insert({row.context, row.source});
                m_sources.insert(row.source);
            }
        }
        QVERIFY(m_sources.size() >= 73);
    }

    void everyTextThatPassesThroughTranslationHasARow() {
        const QStringList unknown = unknownTexts(sourceFolders());
        QVERIFY2(unknown.isEmpty(), qPrintable(unknown.join(", ")));
        QVERIFY(m_collected > 0);
    }

    void everyChineseTextIsOneOfACatalogue() {
        for (const QString &file : sourceFiles()) {
            const QStringList unknown = unknownLiterals(fileText(file));
            QVERIFY2(unknown.isEmpty(), qPrintable(file + ": " + unknown.join(", ")));
        }
    }

    void aTextWithoutARowIsNoticed() {
        QTemporaryDir folder;
        QFile view(folder.filePath("Key1Window.qml"));
        QVERIFY(view.open(QIODevice::WriteOnly));
        view.write(
            "import QtQuick 2.0\nText { text: qsTr(\"单击\"); property string more: qsTr(\"三击\") }\n");
        view.close();
        QFile code(folder.filePath("Magnifie.cpp"));
        QVERIFY(code.open(QIODevice::WriteOnly));
        code.write("class Magnifie : public QWidget { Q_OBJECT void f(); };\n"
                   "void Magnifie::f() { tr(\"Form\"); tr(\"Lens\"); }\n");
        code.close();
        QStringList unknown = unknownTexts({folder.path()});
        unknown.sort();
        QCOMPARE(unknown, (QStringList{"Key1Window: 三击", "Magnifie: Lens"}));
        QCOMPARE(m_collected, 4);
    }

    void aChineseTextOutsideTranslationIsNoticed() {
        QCOMPARE(unknownLiterals("label->setText(\"单击\"); label->setText(\"三击\");"), QStringList{"三击"});
        QCOMPARE(unknownLiterals("<string notr=\"true\">保存</string><string>确定</string>"),
                 QStringList{"保存"});
    }

private:
    /// Lets the translation tool collect the texts, so that contexts are those of the compiler; in words for
    /// a report.
    QStringList unknownTexts(const QStringList &folders) {
        QTemporaryDir scratch;
        const QString collected = scratch.filePath("collected.ts");
        QProcess tool;
        tool.setProcessChannelMode(QProcess::MergedChannels);
        tool.start(LUPDATE, QStringList{"-silent"} + folders + QStringList{"-ts", collected});
        if (!tool.waitForFinished(-1) || tool.exitCode() != 0)
            return {"the tool failed: " + QString::fromLocal8Bit(tool.readAll())};
        QStringList unknown;
        const QVector<TsRow> rows = readTsFile(collected);
        m_collected = rows.size();
        for (const TsRow &row : rows)
            if (!m_rows.contains({row.context, row.source}))
                unknown.append(row.context + ": " + row.source);
        return unknown;
    }

    QStringList unknownLiterals(const QString &text) const {
        static const QString chinese = "[\\x{4E00}-\\x{9FFF}]";
        QStringList unknown;
        const QStringList literals = captures(text, "\"([^\"\\n]*" + chinese + "[^\"\\n]*)\"") +
                                     captures(text, "<string[^>]*>([^<]*" + chinese + "[^<]*)</string>");
        for (const QString &literal : literals)
            if (!m_sources.contains(literal))
                unknown.append(literal);
        return unknown;
    }

    QSet<QPair<QString, QString>> m_rows;
    QSet<QString> m_sources;
    int m_collected = 0;
};

QTEST_GUILESS_MAIN(SourceTextsTest)
#include "SourceTextsTest.moc"
