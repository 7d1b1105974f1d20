// SPDX-License-Identifier: MIT
#include "qml/PanelView.h"
#include "support/TestMain.h"

namespace {

const QPoint key2Button(296 + 12, 457 + 12);
const QPoint key3Button(679 + 12, 196 + 12);
const QPoint key2List(30 + 20, 321 + 136);
const QPoint key3List(712 + 20, 87 + 136);

} // namespace

/// The views of keys 2 and 3.
class KeyDetailTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_view = std::make_unique<PanelView>(); }
    void cleanup() { m_view.reset(); }

    void singlePressIsFixed() {
        m_view->click(key2Button);
        QCOMPARE(m_view->items(QStringLiteral("MyTextBox")).first()->property("showtext").toString(),
                 QStringLiteral("上一页"));
        m_view->click(key3Button);
        QCOMPARE(m_view->items(QStringLiteral("MyTextBox")).first()->property("showtext").toString(),
                 QStringLiteral("下一页"));
    }

    void listOffersTheActionsInCodeOrder() {
        const QStringList actions{"无操作", "PPT放映：开始/结束", "播放器：暂停/播放", "黑板", "屏幕截屏"};
        for (const auto &[button, corner] :
             {std::pair(key2Button, key2List), std::pair(key3Button, key3List)}) {
            m_view->click(button);
            QObject *box = list(corner);
            QVERIFY(box != nullptr);
            QCOMPARE(box->property("count").toInt(), actions.size());
            for (int row = 0; row < actions.size(); ++row) {
                QString text;
                QVERIFY(
                    QMetaObject::invokeMethod(box, "textAt", Q_RETURN_ARG(QString, text), Q_ARG(int, row)));
                QCOMPARE(text, actions.at(row));
            }
        }
    }

    void pickingTheBlackboardForKey3SendsItsCode() {
        m_view->push(13, 0);
        m_view->click(key3Button);
        m_view->pick(key3List, 3);
        QCOMPARE(m_view->messages, QList<Message>({{13, 3, 0}}));
        QCOMPARE(list(key3List)->property("displayText").toString(), QStringLiteral("黑板"));
    }

    void pickingAnActionForKey2SendsItsCode() {
        m_view->click(key2Button);
        for (int row = 0; row < 5; ++row) {
            m_view->pick(key2List, row);
            QCOMPARE(m_view->messages.last(), Message({12, row, 0}));
        }
        QCOMPARE(m_view->messages.size(), 5);
    }

    void pushIsShownAndNotSent() {
        m_view->click(key2Button);
        m_view->push(12, 4);
        QCOMPARE(list(key2List)->property("displayText").toString(), QStringLiteral("屏幕截屏"));
        QVERIFY(m_view->messages.isEmpty());
    }

    void otherIdentifiersAreIgnored() {
        m_view->click(key2Button);
        m_view->push(12, 2);
        QQuickItem *view = m_view->items(QStringLiteral("Key2Window")).first();
        QVERIFY(QMetaObject::invokeMethod(view, "setvalue", Q_ARG(QVariant, 13), Q_ARG(QVariant, 4),
                                          Q_ARG(QVariant, 0)));
        QCOMPARE(list(key2List)->property("currentIndex").toInt(), 2);
    }

    void pickingTheCurrentActionSendsItAgain() {
        m_view->push(13, 3);
        m_view->click(key3Button);
        m_view->pick(key3List, 3);
        m_view->pick(key3List, 3);
        QCOMPARE(m_view->messages, QList<Message>({{13, 3, 0}, {13, 3, 0}}));
    }

    void keyboardChoosesAnAction() {
        m_view->push(12, 1);
        m_view->click(key2Button);
        m_view->widget().activateWindow();
        QTRY_VERIFY(m_view->widget().isActiveWindow());
        list(key2List)->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(&m_view->widget(), Qt::Key_Down);
        QCOMPARE(m_view->messages, QList<Message>({{12, 2, 0}}));
    }

private:
    QQuickItem *list(const QPoint &corner) { return m_view->item(QStringLiteral("ComboxControl"), corner); }

    std::unique_ptr<PanelView> m_view;
};

VEXA_WIDGET_TEST_MAIN(KeyDetailTest)
#include "KeyDetailTest.moc"
