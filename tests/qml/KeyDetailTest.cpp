// SPDX-License-Identifier: MIT
#include "qml/PanelTest.h"
#include "support/Table.h"
#include "support/TestMain.h"

using namespace places;

/// The views of keys 2 and 3.
class KeyDetailTest : public PanelTest {
    Q_OBJECT

    using Keys = vexa::test::Table<QPoint, QPoint, ViewMessage, QPoint>;

private slots:
    void singlePressIsFixed() {
        for (const auto &[button, words] :
             {std::pair(key2Button, "上一页"), std::pair(key3Button, "下一页")}) {
            m_view->click(button);
            QCOMPARE(m_view->items("MyTextBox").first()->property("showtext").toString(), QString(words));
        }
    }

    void listOffersTheActionsInCodeOrder() {
        for (const auto &[button, box] : {std::pair(key2Button, key2List), std::pair(key3Button, key3List)}) {
            m_view->click(button);
            QObject *list = m_view->list(box);
            QVERIFY(list);
            QStringList texts;
            for (int row = 0; row < list->property("count").toInt(); ++row) {
                QString text;
                QMetaObject::invokeMethod(list, "textAt", Q_RETURN_ARG(QString, text), Q_ARG(int, row));
                texts += text;
            }
            QCOMPARE(texts, actionNames);
        }
    }

    void pickingAnActionSendsItsCodeAndIsShownAtOnce_data() {
        Keys::begin();
        QTest::newRow("key 2") << key2Button << key2List << ViewMessage::Key2P << key2Value;
        QTest::newRow("key 3") << key3Button << key3List << ViewMessage::Key3P << key3Value;
    }
    void pickingAnActionSendsItsCodeAndIsShownAtOnce() {
        const auto [button, box, message, summary] = Keys::row();
        m_view->click(button);
        for (int code = 0; code < actionNames.size(); ++code) {
            for (int picks = 0; picks < 2; ++picks) { // the second time it is the present one
                m_view->pick(box, code);
                QCOMPARE(m_view->takeMessages(), Messages({{message, code}}));
                QCOMPARE(m_view->list(box)->property("displayText").toString(), actionNames.at(code));
                QCOMPARE(m_view->textAt(summary), actionNames.at(code));
            }
        }
    }

    void otherIdentifiersAreIgnored() {
        m_view->click(key2Button);
        m_view->push(ViewMessage::Key2P, KeyAction::PlayPause);
        QVERIFY(QMetaObject::invokeMethod(m_view->items("Key2Window").first(), "setvalue",
                                          Q_ARG(QVariant, int(ViewMessage::Key3P)),
                                          Q_ARG(QVariant, int(KeyAction::Screenshot)), Q_ARG(QVariant, 0)));
        QCOMPARE(m_view->list(key2List)->property("currentIndex").toInt(), Number(KeyAction::PlayPause));
    }

    void keyboardChoosesAnAction() {
        m_view->push(ViewMessage::Key2P, KeyAction::SlideShow);
        m_view->click(key2Button);
        m_view->activate();
        m_view->list(key2List)->forceActiveFocus(Qt::TabFocusReason);
        m_view->type(Qt::Key_Down);
        QCOMPARE(m_view->messages, Messages({{ViewMessage::Key2P, KeyAction::PlayPause}}));
    }
};

VEXA_WIDGET_TEST_MAIN(KeyDetailTest)
#include "KeyDetailTest.moc"
