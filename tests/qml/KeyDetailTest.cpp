// SPDX-License-Identifier: MIT
#include "qml/PanelTest.h"
#include "support/TestMain.h"

using namespace places;

/// The views of keys 2 and 3.
class KeyDetailTest : public PanelTest {
    Q_OBJECT

private slots:
    void singlePressIsFixed() {
        for (const auto &[button, words] :
             {std::pair(key2Button, "上一页"), std::pair(key3Button, "下一页")}) {
            m_view->click(button);
            QCOMPARE(m_view->items("MyTextBox").first()->property("showtext").toString(), QString(words));
        }
    }

    void listOffersTheActionsInCodeOrder() {
        const QStringList actions{"无操作", "PPT放映：开始/结束", "播放器：暂停/播放", "黑板", "屏幕截屏"};
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
            QCOMPARE(texts, actions);
        }
    }

    void pickingTheBlackboardForKey3SendsItsCode() {
        m_view->push(ViewMessage::Key3P, KeyAction::None);
        m_view->click(key3Button);
        m_view->pick(key3List, KeyAction::Blackboard);
        QCOMPARE(m_view->messages, Messages({{ViewMessage::Key3P, KeyAction::Blackboard}}));
        QCOMPARE(m_view->list(key3List)->property("displayText").toString(), QString("黑板"));
    }

    void pickingAnActionForKey2SendsItsCode() {
        m_view->click(key2Button);
        for (int row = 0; row < 5; ++row)
            m_view->pick(key2List, row);
        QCOMPARE(m_view->messages, Messages({{ViewMessage::Key2P, KeyAction::None},
                                             {ViewMessage::Key2P, KeyAction::SlideShow},
                                             {ViewMessage::Key2P, KeyAction::PlayPause},
                                             {ViewMessage::Key2P, KeyAction::Blackboard},
                                             {ViewMessage::Key2P, KeyAction::Screenshot}}));
    }

    void pushIsShownAndNotSent() {
        m_view->click(key2Button);
        m_view->push(ViewMessage::Key2P, KeyAction::Screenshot);
        QCOMPARE(m_view->list(key2List)->property("displayText").toString(), QString("屏幕截屏"));
        QVERIFY(m_view->messages.isEmpty());
    }

    void otherIdentifiersAreIgnored() {
        m_view->click(key2Button);
        m_view->push(ViewMessage::Key2P, KeyAction::PlayPause);
        QVERIFY(QMetaObject::invokeMethod(m_view->items("Key2Window").first(), "setvalue",
                                          Q_ARG(QVariant, int(ViewMessage::Key3P)),
                                          Q_ARG(QVariant, int(KeyAction::Screenshot)), Q_ARG(QVariant, 0)));
        QCOMPARE(m_view->list(key2List)->property("currentIndex").toInt(), Number(KeyAction::PlayPause));
    }

    void pickingTheCurrentActionSendsItAgain() {
        m_view->push(ViewMessage::Key3P, KeyAction::Blackboard);
        m_view->click(key3Button);
        m_view->pick(key3List, KeyAction::Blackboard);
        m_view->pick(key3List, KeyAction::Blackboard);
        QCOMPARE(m_view->messages, Messages({{ViewMessage::Key3P, KeyAction::Blackboard},
                                             {ViewMessage::Key3P, KeyAction::Blackboard}}));
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
