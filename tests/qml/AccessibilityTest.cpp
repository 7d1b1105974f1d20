// SPDX-License-Identifier: MIT
#include "qml/PanelView.h"
#include "support/TestMain.h"

#include <QAccessible>

namespace {

const QPoint key4Button(296 + 12, 196 + 12);
const QPoint settingsButton(951 + 9, 598 + 9);

} // namespace

/// The panel as a screen reader finds it. The texts are those without a translation.
class AccessibilityTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_view = std::make_unique<PanelView>(); }
    void cleanup() { m_view.reset(); }

    void sliderTellsItsRangeAndItsValue_data();
    void sliderTellsItsRangeAndItsValue();
    void listTellsItsChoice_data();
    void listTellsItsChoice();
    void switchTellsItsState();
    void everyControlHasANameAndTakesTheFocus_data();
    void everyControlHasANameAndTakesTheFocus();

private:
    /// What is in sight of this role and name, or null.
    QAccessibleInterface *find(QAccessible::Role role, const QString &name) {
        for (QAccessibleInterface *candidate : controls())
            if (candidate->role() == role && candidate->text(QAccessible::Name) == name)
                return candidate;
        return nullptr;
    }

    /// All that is in sight and no mere text.
    QList<QAccessibleInterface *> controls() {
        const QList<QAccessible::Role> roles{QAccessible::Button,   QAccessible::CheckBox,
                                             QAccessible::ComboBox, QAccessible::Link,
                                             QAccessible::Slider,   QAccessible::RadioButton};
        QList<QAccessibleInterface *> found;
        for (QQuickItem *item : qml::tree(m_view->root())) {
            QAccessibleInterface *candidate = QAccessible::queryAccessibleInterface(item);
            if (item->isVisible() && candidate != nullptr && roles.contains(candidate->role()))
                found.append(candidate);
        }
        return found;
    }

    std::unique_ptr<PanelView> m_view;
};

void AccessibilityTest::sliderTellsItsRangeAndItsValue_data() {
    QTest::addColumn<HeldToolChoice>("tool");
    QTest::addColumn<ViewMessage>("message");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("lowest");
    QTest::addColumn<int>("highest");
    QTest::newRow("spotlight darkness")
        << HeldToolChoice::Spotlight << ViewMessage::SportLightTran << QStringLiteral("透明度") << 80 << 255;
    QTest::newRow("spotlight size") << HeldToolChoice::Spotlight << ViewMessage::SportLightSize
                                    << QStringLiteral("大小") << 50 << 250;
    QTest::newRow("lens colour") << HeldToolChoice::Magnifier << ViewMessage::MagnifierColor
                                 << QStringLiteral("颜色") << 0 << 1275;
    QTest::newRow("lens size") << HeldToolChoice::Magnifier << ViewMessage::MagnifierSize
                               << QStringLiteral("大小") << 50 << 250;
    QTest::newRow("laser colour") << HeldToolChoice::Laser << ViewMessage::LaserPenColor
                                  << QStringLiteral("颜色") << 0 << 1275;
    QTest::newRow("laser size") << HeldToolChoice::Laser << ViewMessage::LaserPenSize
                                << QStringLiteral("大小") << 5 << 25;
}

void AccessibilityTest::sliderTellsItsRangeAndItsValue() {
    QFETCH(HeldToolChoice, tool);
    QFETCH(ViewMessage, message);
    QFETCH(QString, name);
    QFETCH(int, lowest);
    QFETCH(int, highest);
    m_view->push(ViewMessage::Key4P, tool);
    m_view->click(key4Button);
    QAccessibleInterface *slider = find(QAccessible::Slider, name);
    QVERIFY(slider != nullptr);
    QAccessibleValueInterface *value = slider->valueInterface();
    QVERIFY(value != nullptr);
    QCOMPARE(value->minimumValue().toInt(), lowest);
    QCOMPARE(value->maximumValue().toInt(), highest);
    for (const int pushed : {lowest + 7, highest - 3}) {
        m_view->push(message, pushed);
        QCOMPARE(value->currentValue().toInt(), pushed);
    }
}

void AccessibilityTest::listTellsItsChoice_data() {
    QTest::addColumn<QPoint>("button");
    QTest::addColumn<QString>("name");
    QTest::addColumn<ViewMessage>("message");
    QTest::addColumn<QStringList>("choices");
    const QStringList actions{"无操作", "PPT放映：开始/结束", "播放器：暂停/播放", "黑板", "屏幕截屏"};
    QTest::newRow("key 2") << QPoint(296 + 12, 457 + 12) << QStringLiteral("长按") << ViewMessage::Key2P
                           << actions;
    QTest::newRow("key 3") << QPoint(679 + 12, 196 + 12) << QStringLiteral("长按") << ViewMessage::Key3P
                           << actions;
    QTest::newRow("key 4, single press")
        << key4Button << QStringLiteral("单击") << ViewMessage::Key4C << actions;
    QTest::newRow("key 4, long press") << key4Button << QStringLiteral("长按") << ViewMessage::Key4P
                                       << QStringList{"聚光灯", "放大镜", "数字激光点"};
    QTest::newRow("language") << settingsButton << QStringLiteral("语言") << ViewMessage::Language
                              << QStringList{"简体中文", "繁体中文"}; // a third push would come too soon
}

void AccessibilityTest::listTellsItsChoice() {
    QFETCH(QPoint, button);
    QFETCH(QString, name);
    QFETCH(ViewMessage, message);
    QFETCH(QStringList, choices);
    m_view->click(button);
    const QAccessibleInterface *list = find(QAccessible::ComboBox, name);
    QVERIFY(list != nullptr);
    for (int i = 0; i < choices.size(); ++i) {
        m_view->push(message, i);
        QCOMPARE(list->text(QAccessible::Description), choices.at(i));
    }
}

void AccessibilityTest::switchTellsItsState() {
    m_view->click(settingsButton);
    const QAccessibleInterface *autoStart = find(QAccessible::CheckBox, QStringLiteral("开机自启动"));
    QVERIFY(autoStart != nullptr);
    for (const bool on : {true, false}) {
        m_view->push(ViewMessage::AutoStart, on);
        QCOMPARE(bool(autoStart->state().checked), on);
    }
}

void AccessibilityTest::everyControlHasANameAndTakesTheFocus_data() {
    QTest::addColumn<QPoint>("button");
    QTest::addColumn<int>("count");
    const int always = 7; // the keys, the gear, two in the title
    QTest::newRow("nothing open") << QPoint(500, 20) << always;
    QTest::newRow("key 1: slots, palette, widths") << QPoint(679 + 12, 457 + 12) << always + 3 + 8 + 4;
    QTest::newRow("key 2: a list") << QPoint(296 + 12, 457 + 12) << always + 1;
    QTest::newRow("key 4: two lists and two sliders") << key4Button << always + 4;
    QTest::newRow("settings: switch, list, link") << settingsButton << always + 3;
}

void AccessibilityTest::everyControlHasANameAndTakesTheFocus() {
    QFETCH(QPoint, button);
    QFETCH(int, count);
    m_view->push(ViewMessage::Key4P, HeldToolChoice::Spotlight);
    m_view->click(button);
    QCOMPARE(controls().size(), count);
    for (const QAccessibleInterface *control : controls()) {
        QVERIFY(!control->text(QAccessible::Name).isEmpty());
        QVERIFY2(control->state().focusable, qPrintable(control->text(QAccessible::Name)));
    }
}

VEXA_WIDGET_TEST_MAIN(AccessibilityTest)
#include "AccessibilityTest.moc"
