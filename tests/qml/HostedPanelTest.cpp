// SPDX-License-Identifier: MIT
#include "app/MainWindow.h"
#include "qml/PanelView.h"
#include "qml/Sliders.h"
#include "support/TestMain.h"
#include "support/UserFile.h"
#include "support/ViewNumbers.h"

#include <QDomDocument>

using namespace vexa::test;
using namespace places;

namespace {

/// What the settings file says, or -1 where it says nothing.
int stored(const char *element) {
    QDomDocument document;
    if (!document.setContent(userfile::read()))
        return -1;
    const QDomNodeList found = document.elementsByTagName(QString(element));
    return found.isEmpty() ? -1 : found.at(0).toElement().text().toInt();
}

/// What key 2's long press says that it does, in each language.
const QStringList slideShow{"PPT放映：开始/结束", "PPT放映：開始/結束", "PPT Slide on/off"};

} // namespace

/// The panel in the program's own window: each choice ends up in the settings file, and stays in the view.
class HostedPanelTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        userfile::startAfresh();
        open();
    }
    void cleanup() {
        close();
        userfile::clear();
    }

    void windowStandsOnItsPicture() {
        const QImage picture(QString(":/bg.png"));
        QCOMPARE(picture.size(), QSize(999, 650));
        QCOMPARE(
            m_window->palette().brush(QPalette::Window).texture().toImage().convertToFormat(picture.format()),
            picture);
    }

    void choicesOfTheKeysAreStored() {
        m_view->click(key2Button);
        m_view->pick(key2List, KeyAction::Screenshot);
        QCOMPARE(stored("Key2P"), Number(KeyAction::Screenshot));
        m_view->click(key3Button);
        for (const auto &[action, words] : {std::pair(KeyAction::PlayPause, "播放器：暂停/播放"),
                                            std::pair(KeyAction::Blackboard, "黑板")}) {
            m_view->pick(key3List, action);
            QCOMPARE(stored("Key3P"), Number(action));
            QCOMPARE(m_view->textAt(key3Value), QString(words));
        }
        m_view->click(key4Button);
        m_view->pick(clickList, KeyAction::None);
        QCOMPARE(stored("Key4C"), Number(KeyAction::None));
        m_view->pick(longPressList, HeldToolChoice::Magnifier);
        QCOMPARE(stored("Key4P"), Number(HeldToolChoice::Magnifier));
    }

    void choicesOfThePenAreStored() {
        // A fresh installation: slots red, white, black, and the second width. Each slot is chosen, then its
        // colour.
        m_view->click(key1Button);
        const struct {
            const char *element;
            QPoint slot, choice;
            int value;
        } rows[] = {{"PenColor0", {31, 40}, {33, 143}, 4},
                    {"PenColor1", {91, 40}, {73, 143}, 5},
                    {"PenColor2", {151, 40}, {113, 143}, 6},
                    {"PenThickness", {151, 40}, {167, 228}, 3}};
        for (const auto &row : rows) {
            m_view->click(penPage + row.slot + QPoint(11, 11));
            m_view->click(penPage + row.choice + QPoint(11, 11));
            QCOMPARE(stored(row.element), row.value);
        }
        QCOMPARE(stored("PenColor0"), 4);
    }

    void valuesOfTheToolsAreStoredAtOnceAndByEachClick_data() { sliders::everySlider(); }
    void valuesOfTheToolsAreStoredAtOnceAndByEachClick() {
        QFETCH(sliders::Slider, slider);
        const QPoint end = sliders::at(slider.corner, 1);
        m_view->click(key4Button);
        m_view->pick(longPressList, slider.tool);
        m_view->press(end);
        QCOMPARE(stored(slider.element), slider.most); // before it is released
        m_view->release(end);
        userfile::clear();
        m_view->click(end); // moves nothing, and stores all the same
        QCOMPARE(stored(slider.element), slider.most);
    }

    void choosingALanguageStoresItAndNeverBounces() {
        m_view->click(settingsButton);
        for (const Number language : {english, traditionalChinese, english, simplifiedChinese}) {
            m_view->push(ViewMessage::Key2P,
                         KeyAction::None); // which the refill that follows the switch takes back
            m_view->messages.clear();
            m_view->pick(languageBox, language);
            QTRY_COMPARE(m_view->textAt(settingsTitle),
                         QStringList({"设置", "設置", "Setting"}).at(language));
            QTRY_COMPARE(m_view->textAt(key2Value), slideShow.at(language));
            QTRY_VERIFY(m_view->list(languageBox)->property("canChangeIndex").toBool());
            QCOMPARE(m_view->shown("ComboxControl", languageBox, "currentIndex"), QVariant(int(language)));
            QCOMPARE(stored("Language"), language);
            QCOMPARE(m_view->messages.count({ViewMessage::Language, language}), 1);
            for (const Message &message : qAsConst(m_view->messages))
                QVERIFY(message.id != ViewMessage::Language || message.var1 == language);
        }
    }

    void languageByMessageNeverBounces() {
        m_view->click(settingsButton);
        m_view->pick(languageBox, english);
        QTRY_COMPARE(m_view->textAt(settingsTitle), QString("Setting"));
        QTRY_VERIFY(m_view->list(languageBox)->property("canChangeIndex").toBool());
        receive(*m_window, ViewMessage::Language, traditionalChinese);
        m_view->push(ViewMessage::Key2P, KeyAction::None);
        QTRY_COMPARE(m_view->textAt(key2Value), slideShow.at(traditionalChinese));
        QTRY_VERIFY(m_view->list(languageBox)->property("canChangeIndex").toBool());
        QCOMPARE(m_view->textAt(settingsTitle), QString("設置"));
        QCOMPARE(m_view->shown("ComboxControl", languageBox, "currentIndex"),
                 QVariant(int(traditionalChinese)));
        QCOMPARE(stored("Language"), traditionalChinese);
    }

    void unknownLanguageShowsTheSourceTexts() {
        m_view->click(settingsButton);
        receive(*m_window, ViewMessage::Language, english);
        QTRY_COMPARE(m_view->textAt(settingsTitle), QString("Setting"));
        receive(*m_window, ViewMessage::Language, 5);
        QTRY_COMPARE(m_view->textAt(settingsTitle), QString("设置"));
        QCOMPARE(m_view->textAt({722 + 127, 207 + 199}), QString("2.0.0.0"));
        QCOMPARE(stored("Language"), 5);
    }

    void storedValuesSurviveARestart() {
        const Values values{{"Key2P", Number(KeyAction::None)},
                            {"Key3P", Number(KeyAction::Screenshot)},
                            {"Key4C", Number(KeyAction::PlayPause)},
                            {"Key4P", Number(HeldToolChoice::Magnifier)},
                            {"PenColor0", 7},
                            {"PenColor1", 3},
                            {"PenColor2", 5},
                            {"PenThickness", 2},
                            {"LaserPenSize", 9},
                            {"LaserPenColor", 700},
                            {"MagnifierSize", 99},
                            {"MagnifierColor", 1},
                            {"SportLightSize", 50},
                            {"SportLightTran", 200},
                            {"Language", english}};
        restartWith(values);
        for (const auto &[element, value] : values)
            QVERIFY2(stored(element) == value, element);
        m_view->click(key4Button);
        QCOMPARE(m_view->list(clickList)->property("displayText").toString(), QString("Pause/Play"));
        QCOMPARE(m_view->items("MagnifierSetWindow").size(), 1);
    }

    void valuesOutOfRangeSurviveAStartAsFarAsNothingMoves_data() {
        QTest::addColumn<bool>("above");
        QTest::newRow("below") << false;
        QTest::newRow("above") << true;
    }
    void valuesOutOfRangeSurviveAStartAsFarAsNothingMoves() {
        QFETCH(bool, above);
        const struct {
            const char *element;
            int below, afterBelow;
            int above, afterAbove;
        } rows[] = {
            // A slider stands at its least value when it is built: a lower one does not move it and is not
            // reported.
            {"SportLightTran", 40, 40, 256, 255},
            {"SportLightSize", 0, 0, 5000, 250},
            {"MagnifierColor", -1, -1, 1276, 1275},
            {"MagnifierSize", 49, 49, 251, 250},
            {"LaserPenColor", -1275, -1275, 99999, 1275},
            {"LaserPenSize", 0, 0, 26, 25},
            // The first slot is checked whatever is pushed, and reports the black that it shows.
            {"PenColor0", -1, 0, 8, 0},
            {"PenColor1", -1, -1, 8, 8},
            {"PenColor2", -1, -1, 8, 8},
            {"PenThickness", -1, -1, 4, 4},
            // Lists and the switch report only what the user does, the list of languages the same value.
            {"Key2P", -1, -1, 5, 5},
            {"Key3P", -1, -1, 5, 5},
            {"Key4C", -1, -1, 5, 5},
            {"Key4P", -1, -1, 3, 3},
            {"AutoStart", -1, -1, 2, 2},
            {"Language", -2, -2, 3, 3},
        };
        Values values;
        for (const auto &row : rows)
            values.append({row.element, above ? row.above : row.below});
        restartWith(values);
        for (const auto &row : rows) {
            const int expected = above ? row.afterAbove : row.afterBelow;
            QVERIFY2(stored(row.element) == expected,
                     qPrintable(QString("%1: %2").arg(row.element).arg(stored(row.element))));
        }
    }

    void aSwitchThatTheSystemRefusesGoesBack() {
        QFile script(QCoreApplication::applicationDirPath() + QString("/setAutoStartClose.sh"));
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\ntouch \"$0.ran\"; exit 1\n");
        script.close();
        QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        restartWith({{"AutoStart", 1}});
        m_view->click(settingsButton);
        m_view->click(autoStart + QPoint(19, 10));
        QVERIFY(QFile::remove(script.fileName() + QString(".ran")));
        QCOMPARE(stored("AutoStart"), 1);
        QCOMPARE(m_view->items("SwitchControl").constFirst()->property("myChecked"), QVariant(true));
        QVERIFY(script.remove());
    }

    void closeIconHidesTheWindow() {
        m_view->click(closeButton);
        QVERIFY(!m_window->isVisible());
    }

    void hiddenViewLeavesItsWindow() {
        m_window->SetValue(m_view->root(), int(ViewMessage::ShowView), 0, 0);
        QVERIFY(!m_view->root()->isVisible());
        QVERIFY(m_window->isVisible());
    }

    void stormOfChangesSavesEach() {
        m_view->click(key4Button);
        m_view->pick(longPressList, HeldToolChoice::Laser);
        QQuickItem *slider = m_view->item("ColorSet", firstSlider);
        QVERIFY(slider);
        for (int value = 1; value <= 1000; ++value) {
            slider->setProperty("curValue", value);
            QCOMPARE(stored("LaserPenColor"), value);
        }
        // And it still answers.
        m_view->click(sliders::at(secondSlider, 1));
        QCOMPARE(stored("LaserPenSize"), 25);
    }

private:
    using Values = QList<std::pair<const char *, int>>;

    /// Starts again on a file with these values.
    void restartWith(const Values &values) {
        QByteArray xml = "<PenSetting FirstRun=\"1\"><Setting>";
        for (const auto &[element, value] : values)
            xml += QByteArray("<") + element + ">" + QByteArray::number(value) + "</" + element + ">";
        close();
        QVERIFY(userfile::write(xml + "</Setting></PenSetting>"));
        open();
    }
    void open() {
        qml::failOnWarnings();
        m_window = std::make_unique<MainWindow>();
        m_window->show();
        // It withdraws soon after the start, and comes back when it is called.
        QTRY_VERIFY(!m_window->isVisible());
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        m_view = std::make_unique<PanelView>(*m_window->findChild<QQuickWidget *>(QString("quickWidget")));
    }
    void close() {
        m_view.reset();
        m_window.reset();
    }
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<PanelView> m_view;
};

VEXA_WIDGET_TEST_MAIN(HostedPanelTest)
#include "HostedPanelTest.moc"
