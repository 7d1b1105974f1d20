// SPDX-License-Identifier: MIT
#include "app/MainWindow.h"
#include "qml/PanelView.h"
#include "settings/ZrToolXmlClass.h"
#include "support/TestMain.h"
#include "support/UserFile.h"

#include <QDomDocument>

using namespace vexa::test;

using Settings = ZrToolXmlClass;

namespace {

const QPoint key1Button(679 + 12, 457 + 12);
const QPoint key2Button(296 + 12, 457 + 12);
const QPoint key3Button(679 + 12, 196 + 12);
const QPoint key4Button(296 + 12, 196 + 12);
const QPoint settingsButton(951 + 9, 598 + 9);
const QPoint languageBox(722 + 87, 207 + 129);
const QPoint firstSlider(30 + 20 + 16, 87 + 208 + 176);
const QPoint secondSlider(30 + 20 + 16, 87 + 208 + 228);
const QPoint penPage(712 + 30, 87 + 114);

/// What the settings file says, or -1 where it says nothing.
int stored(const char *element) {
    QDomDocument document;
    if (!document.setContent(userfile::read()))
        return -1;
    const QDomNodeList found = document.elementsByTagName(QString::fromLatin1(element));
    return found.isEmpty() ? -1 : found.at(0).toElement().text().toInt();
}

QPoint end(const QPoint &slider) {
    return slider + QPoint(174, 3);
}

} // namespace

/// The panel in the program's own window: each choice ends up in the settings file, and stays in the view.
class HostedPanelTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        userfile::clear();
        userfile::forgetSettings();
        open();
    }
    void cleanup() {
        close();
        userfile::clear();
    }

    void windowStandsOnItsPicture() {
        const QImage picture(QStringLiteral(":/bg.png"));
        QCOMPARE(picture.size(), QSize(999, 650));
        QCOMPARE(
            m_window->palette().brush(QPalette::Window).texture().toImage().convertToFormat(picture.format()),
            picture);
    }

    void choicesOfTheKeysAreStored() {
        m_view->click(key2Button);
        m_view->pick({30 + 20, 321 + 136}, 4);
        QCOMPARE(stored("Key2P"), 4);
        m_view->click(key3Button);
        m_view->pick({712 + 20, 87 + 136}, 2);
        QCOMPARE(stored("Key3P"), 2);
        QCOMPARE(textAt({506, 171}), QStringLiteral("播放器：暂停/播放"));
        m_view->pick({712 + 20, 87 + 136}, 3);
        QCOMPARE(stored("Key3P"), 3);
        m_view->click(key4Button);
        m_view->pick({30 + 20, 87 + 42}, 0);
        QCOMPARE(stored("Key4C"), 0);
        m_view->pick({30 + 20, 87 + 136}, 1);
        QCOMPARE(stored("Key4P"), 1);
    }

    void choicesOfThePenAreStored() {
        // A fresh installation: slots red, white, black, and the second width.
        m_view->click(key1Button);
        m_view->click(penPage + QPoint(33 + 13, 143 + 13));
        QCOMPARE(stored("PenColor0"), 4);
        m_view->click(penPage + QPoint(91 + 13, 40 + 13));
        m_view->click(penPage + QPoint(73 + 13, 143 + 13));
        QCOMPARE(stored("PenColor1"), 5);
        m_view->click(penPage + QPoint(151 + 13, 40 + 13));
        m_view->click(penPage + QPoint(113 + 13, 143 + 13));
        QCOMPARE(stored("PenColor2"), 6);
        m_view->click(penPage + QPoint(167 + 11, 228 + 11));
        QCOMPARE(stored("PenThickness"), 3);
        QCOMPARE(stored("PenColor0"), 4);
    }

    void valuesOfTheToolsAreStored_data() {
        QTest::addColumn<int>("tool");
        QTest::addColumn<QPoint>("slider");
        QTest::addColumn<QByteArray>("element");
        QTest::addColumn<int>("most");
        QTest::newRow("darkness") << 0 << firstSlider << QByteArray("SportLightTran") << 255;
        QTest::newRow("light") << 0 << secondSlider << QByteArray("SportLightSize") << 250;
        QTest::newRow("ring") << 1 << firstSlider << QByteArray("MagnifierColor") << 1275;
        QTest::newRow("lens") << 1 << secondSlider << QByteArray("MagnifierSize") << 250;
        QTest::newRow("colour") << 2 << firstSlider << QByteArray("LaserPenColor") << 1275;
        QTest::newRow("dot") << 2 << secondSlider << QByteArray("LaserPenSize") << 25;
    }
    void valuesOfTheToolsAreStored() {
        QFETCH(int, tool);
        QFETCH(QPoint, slider);
        QFETCH(QByteArray, element);
        QFETCH(int, most);
        m_view->click(key4Button);
        m_view->pick({30 + 20, 87 + 136}, tool);
        m_view->click(end(slider));
        QCOMPARE(stored(element.constData()), most);
    }

    void laserSizeAtItsEndIsStoredAtOnce() {
        m_view->click(key4Button);
        m_view->pick({30 + 20, 87 + 136}, 2);
        m_view->press(end(secondSlider)); // not yet released
        QCOMPARE(Settings::LaserPenSize, 25);
        QCOMPARE(stored("LaserPenSize"), 25);
        m_view->release(end(secondSlider));
    }

    void clickThatMovesNothingStoresTheSameValue() {
        m_view->click(key4Button);
        m_view->pick({30 + 20, 87 + 136}, 2);
        m_view->click(end(secondSlider));
        userfile::clear();
        m_view->click(end(secondSlider));
        QCOMPARE(stored("LaserPenSize"), 25);
    }

    void choosingALanguageStoresItAndNeverBounces() {
        m_view->click(settingsButton);
        const QStringList titles{"设置", "設置", "Setting"};
        for (const int language : {2, 1, 2, 0}) {
            m_view->messages.clear();
            m_view->pick(languageBox, language);
            QTRY_COMPARE(textAt({722 + 20, 207 + 23}), titles.at(language));
            QTest::qWait(300); // the refill comes 200 ms after the switch
            QCOMPARE(box(languageBox)->property("currentIndex").toInt(), language);
            QCOMPARE(stored("Language"), language);
            QCOMPARE(m_view->messages.count({16, language, 0}), 1);
            for (const Message &message : qAsConst(m_view->messages))
                QVERIFY(message.id != 16 || message.var1 == language);
        }
    }

    void languageByMessageNeverBounces() {
        m_view->click(settingsButton);
        m_view->pick(languageBox, 2);
        QTRY_COMPARE(textAt({722 + 20, 207 + 23}), QStringLiteral("Setting"));
        QTRY_VERIFY(box(languageBox)->property("canChangeIndex").toBool());
        m_window->recvQmlMessage1(16, 1, 0);
        QTRY_COMPARE(box(languageBox)->property("currentIndex").toInt(), 1);
        QTest::qWait(300); // what might still come of it
        QCOMPARE(textAt({722 + 20, 207 + 23}), QStringLiteral("設置"));
        QCOMPARE(box(languageBox)->property("currentIndex").toInt(), 1);
        QCOMPARE(stored("Language"), 1);
    }

    void unknownLanguageShowsTheSourceTexts() {
        m_view->click(settingsButton);
        m_window->recvQmlMessage1(16, 2, 0);
        QTRY_COMPARE(textAt({722 + 20, 207 + 23}), QStringLiteral("Setting"));
        m_window->recvQmlMessage1(16, 5, 0);
        QTRY_COMPARE(textAt({722 + 20, 207 + 23}), QStringLiteral("设置"));
        QCOMPARE(textAt({722 + 127, 207 + 199}), QStringLiteral("2.0.0.0"));
        QCOMPARE(stored("Language"), 5);
    }

    void storedValuesSurviveARestart() {
        const Values values{{"Key2P", 0},           {"Key3P", 4},
                            {"Key4C", 2},           {"Key4P", 1},
                            {"PenColor0", 7},       {"PenColor1", 3},
                            {"PenColor2", 5},       {"PenThickness", 2},
                            {"LaserPenSize", 9},    {"LaserPenColor", 700},
                            {"MagnifierSize", 99},  {"MagnifierColor", 1},
                            {"SportLightSize", 50}, {"SportLightTran", 200},
                            {"Language", 2}};
        restartWith(values);
        for (const auto &[element, value] : values)
            QVERIFY2(stored(element) == value, element);
        m_view->click(key4Button);
        QCOMPARE(box({30 + 20, 87 + 42})->property("displayText").toString(), QStringLiteral("Pause/Play"));
        QCOMPARE(m_view->items(QStringLiteral("MagnifierSetWindow")).size(), 1);
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
        QFile script(QCoreApplication::applicationDirPath() + QStringLiteral("/setAutoStartClose.sh"));
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\ntouch \"$0.ran\"; exit 1\n");
        script.close();
        QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        restartWith({{"AutoStart", 1}});
        m_view->click(settingsButton);
        m_view->click({722 + 189 + 19, 207 + 74 + 10});
        QVERIFY(QFile::remove(script.fileName() + QStringLiteral(".ran")));
        QCOMPARE(stored("AutoStart"), 1);
        QCOMPARE(m_view->items(QStringLiteral("SwitchControl")).constFirst()->property("myChecked"),
                 QVariant(true));
        QVERIFY(script.remove());
    }

    void closeIconHidesTheWindow() {
        m_view->click({955 + 16, 12 + 16});
        QVERIFY(!m_window->isVisible());
    }

    void thousandHidesTheViewWhileTheWindowStays() {
        m_window->SetValue(m_view->root(), 1000, 0, 0);
        QVERIFY(!m_view->root()->isVisible());
        QVERIFY(m_window->isVisible());
    }

    void stormOfChangesSavesEach() {
        m_view->click(key4Button);
        m_view->pick({30 + 20, 87 + 136}, 2);
        QQuickItem *slider = m_view->item(QStringLiteral("ColorSet"), firstSlider);
        QVERIFY(slider != nullptr);
        for (int value = 1; value <= 1000; ++value) {
            slider->setProperty("curValue", value);
            QCOMPARE(stored("LaserPenColor"), value);
        }
        // And it still answers.
        m_view->click(end(secondSlider));
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
        m_view =
            std::make_unique<PanelView>(*m_window->findChild<QQuickWidget *>(QStringLiteral("quickWidget")));
    }
    void close() {
        m_view.reset();
        m_window.reset();
    }
    QQuickItem *box(const QPoint &corner) { return m_view->item(QStringLiteral("ComboxControl"), corner); }
    QString textAt(const QPoint &corner) {
        const QQuickItem *item = m_view->text(corner);
        return item != nullptr ? item->property("text").toString() : QString();
    }

    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<PanelView> m_view;
};

VEXA_WIDGET_TEST_MAIN(HostedPanelTest)
#include "HostedPanelTest.moc"
