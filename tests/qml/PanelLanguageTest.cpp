// SPDX-License-Identifier: MIT
#include "qml/PanelTest.h"
#include "support/Table.h"
#include "support/TestMain.h"

#include <QAccessible>
#include <QFont>
#include <QTranslator>

using namespace places;

namespace {

const QList<QPoint> buttons{settingsButton, key1Button, key2Button, key3Button, key4Button};
const QStringList catalogues{"Cn", "Tw", "En"};

bool hasHan(const QString &text) {
    for (const QChar letter : text)
        if (letter.script() == QChar::Script_Han)
            return true;
    return false;
}

/// Where the letters of a text are: on its lines, around the middle of its place.
QRectF ink(const QQuickItem *text) {
    const double width = text->property("contentWidth").toReal();
    const double height =
        text->property("lineCount").toInt() * text->property("font").value<QFont>().pixelSize();
    const int alignment = text->property("horizontalAlignment").toInt();
    const double spare = text->width() - width;
    const double x = alignment == Qt::AlignRight     ? spare
                     : alignment == Qt::AlignHCenter ? spare / 2
                                                     : text->property("leftPadding").toReal();
    return {text->mapToScene(QPointF(x, (text->height() - height) / 2)), QSizeF(width, height)};
}

} // namespace

/// The panel in its three languages, switched while it runs by a host that does what the program's does.
class PanelLanguageTest : public PanelTest {
    Q_OBJECT

    using Names = vexa::test::Table<int, QStringList, QStringList, QStringList>;

private slots:
    void init() {
        PanelTest::init();
        connect(m_view->root(), SIGNAL(qmlSignal1(int, int, int)), this, SLOT(host(int, int, int)));
    }
    void cleanup() {
        PanelTest::cleanup();
        m_translator.reset();
    }

    void pickingALanguageSwitchesEveryTextAndKeepsEveryChoice() {
        m_view->pushAll({132, 183, 890, 177, 22, 13, 3, 1, 2, 1, 4, 2, 3, 1, 0, 1});
        m_view->click(settingsButton);
        m_view->messages.clear();
        m_view->pick(languageBox, english);
        QTRY_COMPARE(m_view->textAt(settingsTitle), QString("Setting"));
        for (const QPoint &button : buttons) {
            m_view->click(button);
            for (const QString &text : m_view->visibleTexts())
                QVERIFY2(!hasHan(text), qPrintable(text));
        }
        QCOMPARE(m_view->messages, Messages({{ViewMessage::Language, english}}));
        m_view->click(settingsButton);
        QCOMPARE(m_view->list(languageBox)->property("displayText").toString(), QString("English"));
        m_view->click(key4Button);
        QCOMPARE(m_view->list(clickList)->property("displayText").toString(), QString("Black Board"));
        QCOMPARE(m_view->list(clickList)->property("currentIndex").toInt(), Number(KeyAction::Blackboard));
        QCOMPARE(m_view->items("MagnifierSetWindow").size(), 1);
    }

    void pickingEveryLanguageInTurnNeverBounces() {
        m_view->click(settingsButton);
        const QStringList titles{"设置", "設置", "Setting"};
        int picks = 0;
        for (const Number language : {english, traditionalChinese, simplifiedChinese, traditionalChinese,
                                      english, simplifiedChinese}) {
            m_view->pick(languageBox, language);
            QTRY_COMPARE(m_view->textAt(settingsTitle), titles.at(language));
            QTRY_VERIFY(m_view->list(languageBox)->property("canChangeIndex").toBool());
            QCOMPARE(m_view->list(languageBox)->property("currentIndex").toInt(), language);
            QCOMPARE(m_view->messages.size(), ++picks);
            QCOMPARE(m_view->messages.last(), Message({ViewMessage::Language, language}));
        }
    }

    void switchByMessageNeverBounces() {
        m_view->click(settingsButton);
        QQuickItem *box = m_view->list(languageBox);
        m_view->pick(languageBox, english);
        QTRY_VERIFY(box->property("canChangeIndex").toBool());
        m_view->messages.clear();
        // The host changes the language on its own, and only then tells the view.
        speak(traditionalChinese);
        QTRY_COMPARE(m_view->textAt(settingsTitle), QString("設置"));
        QCOMPARE(box->property("currentIndex").toInt(), english);
        QCOMPARE(m_view->messages, Messages());
        m_view->push(ViewMessage::Language, traditionalChinese);
        settle();
        QCOMPARE(box->property("currentIndex").toInt(), traditionalChinese);
        QCOMPARE(m_view->messages, Messages({{ViewMessage::Language, traditionalChinese}}));
        QCOMPARE(m_view->textAt(settingsTitle), QString("設置"));
    }

    void textsOfTheKeysInEnglish() {
        speak(english);
        QTRY_COMPARE(m_view->textAt({296, 116}), QString("Click"));
        QCOMPARE(m_view->textAt({296, 154}), QString("Long Press"));
        QCOMPARE(m_view->textAt({296, 535}), QString("Page Up"));
        const QStringList actions{"No Action", "PPT Slide on/off", "Pause/Play", "Black Board", "Screenshot"};
        m_view->click(key4Button);
        for (int code = 0; code < actions.size(); ++code) {
            m_view->push(ViewMessage::Key4C, code);
            QCOMPARE(m_view->textAt(key4ClickValue), actions.at(code));
            QCOMPARE(m_view->list(clickList)->property("displayText").toString(), actions.at(code));
        }
    }

    void nothingIsClippedOrOverlapsInAnyLanguage_data() {
        QTest::addColumn<int>("language");
        for (int language = 0; language < catalogues.size(); ++language)
            QTest::newRow(qPrintable(catalogues.at(language))) << language;
    }
    void nothingIsClippedOrOverlapsInAnyLanguage() {
        QFETCH(int, language);
        speak(language);
        settle();
        m_view->push(ViewMessage::Language, language);
        const auto check = [this] {
            for (const QQuickItem *text : m_view->items("QQuickText")) {
                const QByteArray words = text->property("text").toString().toUtf8();
                QVERIFY2(!text->property("truncated").toBool(), words.constData());
                QVERIFY2(text->property("contentWidth").toReal() <= text->width(), words.constData());
            }
            const QList<QQuickItem *> texts = m_view->items("QQuickText");
            for (int i = 0; i < texts.size(); ++i) {
                for (int j = i + 1; j < texts.size(); ++j) {
                    const QString both = texts.at(i)->property("text").toString() + " and " +
                                         texts.at(j)->property("text").toString();
                    QVERIFY2(!ink(texts.at(i)).intersects(ink(texts.at(j))), qPrintable(both));
                }
            }
        };
        for (const QPoint &button : buttons) {
            m_view->click(button);
            for (int code = 0; code < 5; ++code) {
                for (const ViewMessage key :
                     {ViewMessage::Key2P, ViewMessage::Key3P, ViewMessage::Key4C, ViewMessage::Key4P})
                    m_view->push(key, code);
                check();
            }
        }
    }

    void everyControlHasANameInTheCurrentLanguage_data() {
        Names::begin();
        QTest::newRow("Cn") << int(simplifiedChinese) << QStringList{"设置", "最小化", "关闭"}
                            << QStringList{"黑色", "白色", "红色", "蓝色", "绿色", "黄色", "洋红色", "紫色"}
                            << QStringList{"颜色",       "画笔粗细", "单击",
                                           "长按",       "大小",     "透明度",
                                           "开机自启动", "语言",     "请访问Vexa官网以获得更多支持"};
        QTest::newRow("Tw") << int(traditionalChinese) << QStringList{"設置", "最小化", "關閉"}
                            << QStringList{"黑色", "白色", "紅色", "藍色", "綠色", "黃色", "洋紅色", "紫色"}
                            << QStringList{"顏色",       "設置畫筆粗細", "按一下",
                                           "長按",       "大小",         "透明度",
                                           "開機自啟動", "語言",         "請訪問Vexa官網獲得更多支持"};
        QTest::newRow("En") << int(english) << QStringList{"Setting", "Minimize", "Close"}
                            << QStringList{"Black", "White",  "Red",     "Blue",
                                           "Green", "Yellow", "Magenta", "Violet"}
                            << QStringList{
                                   "Color",      "Penwidth", "Click",
                                   "Long Press", "Size",     "Brightness",
                                   "Auto Start", "Language", "Please visit Vexa website to get more support"};
    }
    void everyControlHasANameInTheCurrentLanguage() {
        auto [language, always, colours, words] = Names::row();
        speak(language);
        settle();
        always += {"Key 1", "Key 2", "Key 3", "Key 4"};
        const QString colour = words.at(0), width = words.at(1), longPress = words.at(3), size = words.at(4);
        const QStringList lists{words.at(2), longPress};
        QStringList pen = colours;
        for (const char *number : {"1", "2", "3"})
            pen += {colour + ' ' + number, width + ' ' + number};
        pen += width + " 4";

        QCOMPARE(namesBeside(always), QStringList());
        const struct {
            QPoint button;
            HeldToolChoice tool;
            QStringList names;
        } views[] = {{key1Button, HeldToolChoice::Spotlight, pen},
                     {key2Button, HeldToolChoice::Spotlight, {longPress}},
                     {key3Button, HeldToolChoice::Spotlight, {longPress}},
                     {key4Button, HeldToolChoice::Spotlight, lists + QStringList{words.at(5), size}},
                     {settingsButton, HeldToolChoice::Spotlight, words.mid(6)},
                     {key4Button, HeldToolChoice::Magnifier, lists + QStringList{colour, size}},
                     {settingsButton, HeldToolChoice::Magnifier, words.mid(6)},
                     {key4Button, HeldToolChoice::Laser, lists + QStringList{colour, size}}};
        for (const auto &view : views) {
            m_view->push(ViewMessage::Key4P, view.tool);
            m_view->click(view.button);
            QStringList expected = view.names;
            expected.sort();
            QCOMPARE(namesBeside(always), expected);
        }
    }

public slots:
    void host(int id, int value, int) {
        if (ViewMessage(id) == ViewMessage::Language)
            speak(value);
    }

private:
    void speak(int language) {
        m_translator = std::make_unique<QTranslator>();
        if (m_translator->load(QString(":/language_qm/lang_%1.qm").arg(catalogues.at(language))))
            QCoreApplication::installTranslator(m_translator.get());
        m_port = std::make_unique<QTranslator>();
        if (m_port->load(QString(":/language_qm/port_%1.qm").arg(catalogues.at(language))))
            QCoreApplication::installTranslator(m_port.get());
    }
    /// What a screen reader calls the controls that the keyboard reaches, sorted, without those names that
    /// must be there as well.
    QStringList namesBeside(const QStringList &expected) {
        QStringList names;
        for (QQuickItem *item : qml::tree(m_view->root())) {
            if (!item->isVisible() || !item->activeFocusOnTab())
                continue;
            const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(item);
            names += accessible != nullptr ? accessible->text(QAccessible::Name) : QString();
        }
        names.sort();
        for (const QString &name : expected)
            if (!names.removeOne(name))
                names += "no " + name;
        return names;
    }
    /// Returns when the view has taken up a posted change of language.
    void settle() {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    std::unique_ptr<QTranslator> m_translator;
    std::unique_ptr<QTranslator> m_port;
};

VEXA_WIDGET_TEST_MAIN(PanelLanguageTest)
#include "PanelLanguageTest.moc"
