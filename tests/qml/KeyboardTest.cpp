// SPDX-License-Identifier: MIT
#include "qml/PanelView.h"
#include "support/TestMain.h"

/// The panel without a mouse.
class KeyboardTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_view = std::make_unique<PanelView>();
        m_view->widget().activateWindow();
        QTRY_VERIFY(m_view->widget().isActiveWindow());
    }
    void cleanup() { m_view.reset(); }

    void escapeClosesTheViewThenThePanel() {
        m_view->click({296 + 12, 457 + 12});
        QCOMPARE(m_view->items(QStringLiteral("Key2Window")).size(), 1);
        press(Qt::Key_Escape);
        QCOMPARE(m_view->items(QStringLiteral("Key2Window")).size(), 0);
        QCOMPARE(m_view->messages, QList<Message>());
        press(Qt::Key_Escape);
        QCOMPARE(m_view->messages, QList<Message>({{0, 0, 0}}));
    }

    void viewOpenedWithTheKeyboardTakesItAndGivesItBack_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("view");
        QTest::newRow("key 1") << QByteArray("key1Button") << QStringLiteral("Key1Window");
        QTest::newRow("key 2") << QByteArray("key2Button") << QStringLiteral("Key2Window");
        QTest::newRow("key 3") << QByteArray("key3Button") << QStringLiteral("Key3Window");
        QTest::newRow("key 4") << QByteArray("key4Button") << QStringLiteral("Key4Window");
        QTest::newRow("settings") << QByteArray("setButton") << QStringLiteral("SetWindow");
    }
    void viewOpenedWithTheKeyboardTakesItAndGivesItBack() {
        QFETCH(QByteArray, name);
        QFETCH(QString, view);
        QVERIFY(QMetaObject::invokeMethod(button(name), "takeFocus"));
        const QQuickItem *before = focused();
        press(Qt::Key_Space);
        QCOMPARE(m_view->items(view).size(), 1);
        QVERIFY(isInside(m_view->items(view).first()));
        press(Qt::Key_Escape);
        QCOMPARE(m_view->items(view).size(), 0);
        QCOMPARE(focused(), before);
    }

    void viewOpenedWithTheMouseLeavesTheFocus() {
        const QQuickItem *before = focused();
        m_view->click({296 + 12, 457 + 12});
        QCOMPARE(focused(), before);
    }

    void escapeInAnOpenListClosesTheList() {
        const QPoint corner(30 + 20, 321 + 136);
        m_view->click({296 + 12, 457 + 12});
        QQuickItem *list = m_view->item(QStringLiteral("ComboxControl"), corner);
        QVERIFY(list != nullptr);
        auto *popup = list->property("popup").value<QObject *>();
        m_view->click(corner + QPoint(20, 15));
        QTRY_VERIFY(popup->property("opened").toBool());
        press(Qt::Key_Escape);
        QTRY_VERIFY(!popup->property("visible").toBool());
        QCOMPARE(m_view->items(QStringLiteral("Key2Window")).size(), 1);
    }

    void arrowsChooseAmongTheWidths() {
        m_view->click({679 + 12, 457 + 12});
        const QPoint widths(712 + 30, 87 + 114 + 228);
        QVERIFY(QMetaObject::invokeMethod(
            m_view->item(QStringLiteral("PizhuSetButton2"), widths + QPoint(16, 0)), "takeFocus"));
        press(Qt::Key_Right);
        press(Qt::Key_Right);
        press(Qt::Key_Left);
        press(Qt::Key_Left);
        press(Qt::Key_Left); // from the first to the last
        QCOMPARE(m_view->messages,
                 QList<Message>({{11, 1, 0}, {11, 2, 0}, {11, 1, 0}, {11, 0, 0}, {11, 3, 0}}));
    }

    void arrowsChooseInThePalette() {
        m_view->click({679 + 12, 457 + 12});
        m_view->push(8, 3);
        m_view->messages.clear();
        const QPoint blue(712 + 30 + 153, 87 + 114 + 100);
        QVERIFY(
            QMetaObject::invokeMethod(m_view->item(QStringLiteral("PizhuSetButton1"), blue), "takeFocus"));
        press(Qt::Key_Down);
        press(Qt::Key_Left);
        press(Qt::Key_Up);
        QCOMPARE(m_view->messages, QList<Message>({{8, 7, 0}, {8, 6, 0}, {8, 2, 0}}));
    }

private:
    void press(Qt::Key key) { QTest::keyClick(&m_view->widget(), key); }
    QQuickItem *focused() { return m_view->root()->window()->activeFocusItem(); }
    bool isInside(const QQuickItem *view) {
        const QQuickItem *item = focused();
        while (item != nullptr && item != view)
            item = item->parentItem();
        return item != nullptr;
    }
    QObject *button(const char *name) {
        return m_view->root()->findChild<QObject *>(QString::fromLatin1(name));
    }

    std::unique_ptr<PanelView> m_view;
};

VEXA_WIDGET_TEST_MAIN(KeyboardTest)
#include "KeyboardTest.moc"
