// SPDX-License-Identifier: MIT
#include "res/ExpectedRows.h"
#include "res/Wording.h"

#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

namespace {

QString resource(Catalogue catalogue) {
    return QStringLiteral(":/language_qm/lang_%1.qm").arg(catalogueName(catalogue));
}

QString shown(const QString &context, const QString &source) {
    return QCoreApplication::translate(context.toUtf8(), source.toUtf8());
}

} // namespace

/// What the program gets to see of the compiled catalogues.
class CatalogueLookupTest : public QObject {
    Q_OBJECT

private slots:
    void everyRowIsFoundInTheCompiledCatalogue_data() { everyCatalogue(); }
    void everyRowIsFoundInTheCompiledCatalogue() {
        QFETCH(int, catalogue);
        install(Catalogue(catalogue));
        const QVector<TsRow> rows = expectedRows(Catalogue(catalogue));
        QVERIFY(rows.size() >= 140);
        for (const TsRow &row : rows)
            QCOMPARE(shown(row.context, row.source),
                     row.translation.isEmpty() ? row.source : row.translation);
    }

    void traditionalKeepsItsDeliberateOddities() {
        install(Catalogue::Traditional);
        const char *const rows[][3] = {{"Key2Window", "屏幕截屏", "截屏"},
                                       {"MainWindow", "截屏已保存", "截屏"},
                                       {"Key4Window", "数字激光点", "數字激光筆"},
                                       {"Key4Window", "数字激光笔设置", "數位鐳射筆設置"},
                                       {"PizhuSetPenColor", "画笔粗细", "設置畫筆粗細"},
                                       {"PizhuSetPenSize", "画笔粗细:", "設置畫筆粗細"},
                                       {"Key1Window", "单击", "按一下"}};
        for (const auto &[context, source, translation] : rows)
            QCOMPARE(shown(context, source), QString(translation));
    }

    void theGuideStaysSimplifiedWithTheTraditionalCatalogue() {
        install(Catalogue::Traditional);
        int texts = 0;
        for (const Wording &wording : wordings()) {
            if (!QString(wording.contexts).startsWith("Privacy"))
                continue;
            ++texts;
            for (const QString &context : QString(wording.contexts).split(' '))
                QCOMPARE(shown(context, wording.source), QString(wording.source));
        }
        QCOMPARE(texts, 9);
    }

    void simplifiedRestoresTheSourcesAfterAnotherLanguage() {
        // The guide leaves a translator of its own behind; the one installed later is asked first.
        QTranslator guide;
        QVERIFY(guide.load(resource(Catalogue::Traditional)));
        QVERIFY(QCoreApplication::installTranslator(&guide));
        install(Catalogue::Simplified);
        for (const Wording &wording : wordings()) {
            const QString source = wording.source;
            if (source == "2.0.0.0" || source == "版本 1.0")
                continue;
            for (const QString &context : QString(wording.contexts).split(' '))
                QCOMPARE(shown(context, source), source);
        }
        QCoreApplication::removeTranslator(&guide);
    }

    void anUnknownCatalogueLoadsNothing() {
        QTranslator none;
        QVERIFY(!none.load(QString()));
        QVERIFY(!none.load(":/language_qm/lang_Fr.qm"));
        QCOMPARE(shown("Key1Window", "单击"), QString("单击"));
    }

    void theTextsOfThisPortHaveCataloguesOfTheirOwn() {
        install(Catalogue::English);
        QCOMPARE(shown("MainWindow", "关闭"), QString("关闭"));
        for (const auto &[catalogue, close] :
             {std::pair("En", "Close"), std::pair("Tw", "關閉"), std::pair("Cn", "关闭")}) {
            // Where no other file is beside them, each loads all the same.
            const QTemporaryDir folder;
            for (const QString &name : {QStringLiteral("lang_%1.qm"), QStringLiteral("port_%1.qm")}) {
                const QString file = folder.filePath(QStringLiteral("alone.qm"));
                QVERIFY(QFile::copy(QStringLiteral(":/language_qm/") + name.arg(catalogue), file));
                QVERIFY2(QTranslator().load(file), qPrintable(name.arg(catalogue)));
                QVERIFY(QFile::remove(file));
            }
            QTranslator port;
            QVERIFY(port.load(QStringLiteral(":/language_qm/port_%1.qm").arg(catalogue)));
            QCOMPARE(port.translate("MainWindow", "关闭"), QString(close));
        }
    }

    void cleanup() { QCoreApplication::removeTranslator(&m_translator); }

private:
    void install(Catalogue catalogue) {
        QVERIFY(m_translator.load(resource(catalogue)));
        QVERIFY(QCoreApplication::installTranslator(&m_translator));
    }

    QTranslator m_translator;
};

QTEST_GUILESS_MAIN(CatalogueLookupTest)
#include "CatalogueLookupTest.moc"
