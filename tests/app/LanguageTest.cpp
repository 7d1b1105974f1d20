// SPDX-License-Identifier: MIT
#include "app/Language.h"

#include "app/MainWindow.h"
#include "overlays/PromptWindow.h"
#include "settings/ZrToolXmlClass.h"
#include "support/Table.h"
#include "support/TestMain.h"
#include "support/UserFile.h"
#include "support/ViewNumbers.h"

#include <QFontDatabase>
#include <QLabel>
#include <QQuickItem>
#include <QQuickWidget>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QTextLayout>

using namespace vexa::test;

using vexa::Language;

namespace {

QString spoken(const char *text, const char *context = "SetWindow") {
    return QCoreApplication::translate(context, text);
}

/// The faces that draw this text in this font.
QStringList facesOf(const QString &text, const QFont &font) {
    QTextLayout layout(text, font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    QStringList faces;
    for (const QGlyphRun &run : layout.glyphRuns())
        faces += run.rawFont().familyName().toLower();
    return faces;
}

/// What the screenshot prompt says; it is the one that does not carry the program's name.
QStringList promptTexts() {
    QStringList texts;
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (qobject_cast<PromptWindow *>(widget))
            texts += widget->findChild<QLabel *>(QStringLiteral("label"))->text();
    texts.removeOne(QStringLiteral("Vexa Orbilo Setting"));
    return texts;
}

} // namespace

// As in a program whose catalogues are broken. The toolkit wants this outside of any namespace.
static void takeCataloguesAway() {
    Q_CLEANUP_RESOURCE(catalogues);
}
static void bringCataloguesBack() {
    Q_INIT_RESOURCE(catalogues);
}

class LanguageTest : public QObject {
    Q_OBJECT

    using Spoken = Table<int, QStringList>;
    using Faces = Table<int, QString>;

private slots:
    void init() { userfile::startAfresh(); }

    void cleanupTestCase() { userfile::clear(); }

    void eachLanguageHasItsCatalogueAndOthersTheSourceTexts_data() {
        Spoken::begin();
        const auto row = [](const char *name, int language, const QStringList &texts) {
            QTest::newRow(name) << language << texts;
        };
        row("Simplified Chinese", simplifiedChinese, {"设置", "2.1.0.210527", "关闭"});
        row("Traditional Chinese", traditionalChinese, {"設置", "2.1.0.210527", "關閉"});
        row("English", english, {"Setting", "2.1.0.210527", "Close"});
        for (const int language : {-1, 3, 5, -2147483647 - 1})
            row(qPrintable(QString::number(language)), language, {"设置", "2.0.0.0", "关闭"});
    }
    void eachLanguageHasItsCatalogueAndOthersTheSourceTexts() {
        const auto [language, texts] = Spoken::row();
        Language spokenLanguage;
        spokenLanguage.change(english);
        spokenLanguage.change(language);
        // The last is a text that only this port has.
        QCOMPARE((QStringList{spoken("设置"), spoken("2.0.0.0"), spoken("关闭", "MainWindow")}), texts);
    }

    void catalogueThatCannotBeLoadedLeavesTheSourceTexts() {
        Language spokenLanguage;
        spokenLanguage.change(english);
        QCOMPARE(spoken("设置"), QStringLiteral("Setting"));
        {
            takeCataloguesAway();
            const auto mended = qScopeGuard(bringCataloguesBack);
            for (const Number language : {traditionalChinese, english, simplifiedChinese}) {
                spokenLanguage.change(language);
                QCOMPARE(spoken("设置"), QStringLiteral("设置"));
                QCOMPARE(spoken("2.0.0.0"), QStringLiteral("2.0.0.0"));
            }
        }
        spokenLanguage.change(english);
        QCOMPARE(spoken("设置"), QStringLiteral("Setting"));
    }

    void nextCatalogueReplacesTheOneBefore() {
        Language spokenLanguage;
        spokenLanguage.change(english);
        spokenLanguage.change(traditionalChinese);
        // The guide to the permissions has no rows in Traditional Chinese; English must not shine through.
        QCOMPARE(spoken("辅助功能", "PrivacyWindow"), QStringLiteral("辅助功能"));
        spokenLanguage.change(english);
        QCOMPARE(spoken("辅助功能", "PrivacyWindow"), QStringLiteral("Auxiliary Function;"));
    }

    void endOfTheLanguageTakesTheCatalogueOut() {
        {
            Language spokenLanguage;
            spokenLanguage.change(english);
            QCOMPARE(spoken("设置"), QStringLiteral("Setting"));
        }
        QCOMPARE(spoken("设置"), QStringLiteral("设置"));
    }

    void chineseTextHasTheFaceOfItsReaders_data() {
        Faces::begin();
        QTest::newRow("Simplified Chinese") << int(simplifiedChinese) << "noto sans cjk sc";
        QTest::newRow("Traditional Chinese") << int(traditionalChinese) << "noto sans cjk tc";
        QTest::newRow("English") << int(english) << "noto sans cjk sc";
    }
    void chineseTextHasTheFaceOfItsReaders() {
        const auto [language, face] = Faces::row();
        const QString chinese = QStringLiteral("直骨角");
        QLabel label;
        label.setFont(QFont(QStringLiteral("Arial"), 40));
        Language::chooseFont(language == traditionalChinese ? simplifiedChinese : traditionalChinese);
        QVERIFY(!facesOf(chinese, label.font()).contains(face));
        Language::chooseFont(language);
        QCOMPARE(label.font().family(), QStringLiteral("Arial"));
        QCOMPARE(facesOf(chinese, label.font()), QStringList{face});
        QVERIFY(!facesOf(QStringLiteral("Arial"), label.font()).contains(face));
    }

    void viewFollowsWithItsFace() {
        MainWindow window;
        const auto *view = window.findChild<QQuickWidget *>(QStringLiteral("quickWidget"));
        const auto faces = [view] {
            QSet<QString> found;
            for (const QObject *item : view->rootObject()->findChildren<QObject *>()) {
                if (item->inherits("QQuickText"))
                    for (const QString &face :
                         facesOf(QStringLiteral("直骨角"), item->property("font").value<QFont>()))
                        found.insert(face);
            }
            return found;
        };
        for (const auto &[language, face] :
             {std::pair(traditionalChinese, "noto sans cjk tc"), std::pair(english, "noto sans cjk sc"),
              std::pair(traditionalChinese, "noto sans cjk tc"), std::pair(Number(7), "noto sans cjk sc")}) {
            window.changeLanguage(language);
            QTRY_COMPARE(faces(), QSet<QString>{QString::fromLatin1(face)});
        }
    }

    void fontsOfOthersAreLeftAlone() {
        const QStringList files =
            QStandardPaths::locateAll(QStandardPaths::FontsLocation, QStringLiteral("truetype/liberation"),
                                      QStandardPaths::LocateDirectory);
        QVERIFY(!files.isEmpty());
        const int own =
            QFontDatabase::addApplicationFont(files.first() + QStringLiteral("/LiberationMono-Regular.ttf"));
        QVERIFY(own >= 0);
        const QStringList substitutes{QStringLiteral("somebody's")};
        QFont::insertSubstitutions(QStringLiteral("Arial"), substitutes);
        Language language;
        language.change(traditionalChinese);
        QVERIFY(!QFontDatabase::applicationFontFamilies(own).isEmpty());
        QCOMPARE(QFont::substitutes(QStringLiteral("Arial")), substitutes);
        QFont::removeSubstitutions(QStringLiteral("Arial"));
        QVERIFY(QFontDatabase::removeApplicationFont(own));
    }

    void choosingALanguageIsSavedAndSpoken() {
        MainWindow window;
        for (const auto &[language, text] :
             {std::pair(english, "Setting"), std::pair(traditionalChinese, "設置"),
              std::pair(english, "Setting"), std::pair(Number(5), "设置")}) { // the last is not in the list
            receive(window, ViewMessage::Language, language);
            QCOMPARE(ZrToolXmlClass::Language, language);
            QVERIFY(userfile::read().contains("<Language>" + QByteArray::number(language) + "</Language>"));
            QCOMPARE(spoken("设置"), QString(text));
        }
    }

    void screenshotPromptFollowsTheLanguage() {
        MainWindow window;
        QTRY_COMPARE(promptTexts(), QStringList{"截屏已保存"});
        for (const auto &[language, text] :
             {std::pair(english, "Screenshot saved!"), std::pair(traditionalChinese, "截屏"),
              std::pair(simplifiedChinese, "截屏已保存"), std::pair(english, "Screenshot saved!"),
              std::pair(Number(7), "截屏已保存")}) {
            window.changeLanguage(language);
            QTRY_COMPARE(promptTexts(), QStringList{text});
        }
    }

    void windowKeepsItsTitle() {
        MainWindow window;
        window.setWindowTitle(QStringLiteral("other"));
        window.findChild<QLabel *>(QStringLiteral("label"))->setText(QStringLiteral("other"));
        window.changeLanguage(english);
        QCOMPARE(window.windowTitle(), QStringLiteral("MainWindow"));
        QCOMPARE(window.findChild<QLabel *>(QStringLiteral("label"))->text(), QStringLiteral("VexaOrbilo"));
    }
};

VEXA_WIDGET_TEST_MAIN(LanguageTest)
#include "LanguageTest.moc"
