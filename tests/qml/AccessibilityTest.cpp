// SPDX-License-Identifier: MIT
#include "qml/PanelTest.h"
#include "qml/Sliders.h"
#include "support/Table.h"
#include "support/TestMain.h"

#include <QAccessible>

using namespace places;
using vexa::test::Table;

/// The panel as a screen reader finds it. The texts are those without a translation.
class AccessibilityTest : public PanelTest {
    Q_OBJECT

    using Lists = Table<QPoint, QString, ViewMessage, QStringList>;

private slots:
    void sliderTellsItsRangeAndItsValue_data() { sliders::everySlider(); }
    void sliderTellsItsRangeAndItsValue() {
        QFETCH(sliders::Slider, slider);
        m_view->push(ViewMessage::Key4P, slider.tool);
        m_view->click(key4Button);
        QAccessibleInterface *control =
            find(QAccessible::Slider, slider.corner == secondSlider       ? "大小"
                                      : slider.tool == sliders::spotlight ? "透明度"
                                                                          : "颜色");
        QVERIFY(control != nullptr);
        QAccessibleValueInterface *value = control->valueInterface();
        QVERIFY(value != nullptr);
        QCOMPARE(value->minimumValue().toInt(), slider.least);
        QCOMPARE(value->maximumValue().toInt(), slider.most);
        for (const int pushed : {slider.least + 7, slider.most - 3}) {
            m_view->push(slider.message, pushed);
            QCOMPARE(value->currentValue().toInt(), pushed);
        }
    }

    void listTellsItsChoice_data() {
        Lists::begin();
        QTest::newRow("key 2") << key2Button << QString("长按") << ViewMessage::Key2P << actionNames;
        QTest::newRow("key 3") << key3Button << QString("长按") << ViewMessage::Key3P << actionNames;
        QTest::newRow("key 4, single press")
            << key4Button << QString("单击") << ViewMessage::Key4C << actionNames;
        QTest::newRow("key 4, long press")
            << key4Button << QString("长按") << ViewMessage::Key4P << toolNames;
        QTest::newRow("language") << settingsButton << QString("语言") << ViewMessage::Language
                                  << QStringList{"简体中文", "繁体中文"}; // a third push would come too soon
    }
    void listTellsItsChoice() {
        const auto [button, name, message, choices] = Lists::row();
        m_view->click(button);
        const QAccessibleInterface *list = find(QAccessible::ComboBox, name);
        QVERIFY(list != nullptr);
        for (int i = 0; i < choices.size(); ++i) {
            m_view->push(message, i);
            QCOMPARE(list->text(QAccessible::Description), choices.at(i));
        }
    }

    void switchTellsItsState() {
        m_view->click(settingsButton);
        const QAccessibleInterface *startAtLogin = find(QAccessible::CheckBox, QStringLiteral("开机自启动"));
        QVERIFY(startAtLogin != nullptr);
        for (const bool on : {true, false}) {
            m_view->push(ViewMessage::AutoStart, on);
            QCOMPARE(bool(startAtLogin->state().checked), on);
        }
    }

    void everyActionOfASwitchTurnsIt() {
        m_view->click(settingsButton);
        QAccessibleInterface *startAtLogin = find(QAccessible::CheckBox, QStringLiteral("开机自启动"));
        QVERIFY(startAtLogin != nullptr);
        QVERIFY(!actionsOf(startAtLogin).isEmpty());
        for (const QString &action : actionsOf(startAtLogin)) {
            const bool before = startAtLogin->state().checked;
            startAtLogin->actionInterface()->doAction(action);
            QVERIFY2(startAtLogin->state().checked != before, qPrintable(action));
        }
    }

    void everyActionOfAChoiceChoosesIt() {
        m_view->click(key1Button);
        QAccessibleInterface *first = find(QAccessible::RadioButton, QStringLiteral("画笔粗细 1"));
        QAccessibleInterface *second = find(QAccessible::RadioButton, QStringLiteral("画笔粗细 2"));
        QVERIFY(first != nullptr && second != nullptr);
        QVERIFY(!actionsOf(second).isEmpty());
        for (const QString &action : actionsOf(second)) {
            m_view->push(ViewMessage::PenThickness, 0);
            QVERIFY(first->state().checked);
            second->actionInterface()->doAction(action);
            QVERIFY2(second->state().checked && !first->state().checked, qPrintable(action));
        }
    }

    void everyControlHasANameAndTakesTheFocus_data() {
        QTest::addColumn<QPoint>("button");
        QTest::addColumn<int>("count");
        const int always = 7; // the keys, the gear, two in the title
        QTest::newRow("nothing open") << QPoint(500, 20) << always;
        QTest::newRow("key 1: slots, palette, widths") << key1Button << always + 3 + 8 + 4;
        QTest::newRow("key 2: a list") << key2Button << always + 1;
        QTest::newRow("key 4: two lists and two sliders") << key4Button << always + 4;
        QTest::newRow("settings: switch, list, link") << settingsButton << always + 3;
    }
    void everyControlHasANameAndTakesTheFocus() {
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

private:
    /// What a screen reader is told that can be done with it, apart from giving it the keyboard.
    static QStringList actionsOf(QAccessibleInterface *control) {
        QStringList actions = control->actionInterface()->actionNames();
        actions.removeAll(QAccessibleActionInterface::setFocusAction());
        return actions;
    }

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
};

VEXA_WIDGET_TEST_MAIN(AccessibilityTest)
#include "AccessibilityTest.moc"
