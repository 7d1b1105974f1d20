// SPDX-License-Identifier: MIT
#include "qml/PanelTest.h"
#include "support/TestMain.h"

using namespace places;

/// The panel without a mouse.
class KeyboardTest : public PanelTest {
    Q_OBJECT

private slots:
    void init() {
        PanelTest::init();
        m_view->activate();
    }

    void escapeClosesTheViewThenThePanel() {
        m_view->click(key2Button);
        QVERIFY(m_view->has("Key2Window"));
        m_view->type(Qt::Key_Escape);
        QVERIFY(!m_view->has("Key2Window"));
        QCOMPARE(m_view->messages, Messages());
        m_view->type(Qt::Key_Escape);
        QCOMPARE(m_view->messages, Messages({{ViewMessage::HidePanel, 0}}));
    }

    void viewOpenedWithTheKeyboardTakesItAndGivesItBack_data() {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("view");
        for (const auto &[button, view] :
             {std::pair("key1Button", "Key1Window"), std::pair("key2Button", "Key2Window"),
              std::pair("key3Button", "Key3Window"), std::pair("key4Button", "Key4Window"),
              std::pair("setButton", "SetWindow")})
            QTest::newRow(view) << button << view;
    }
    void viewOpenedWithTheKeyboardTakesItAndGivesItBack() {
        QFETCH(QString, button);
        QFETCH(QString, view);
        QVERIFY(QMetaObject::invokeMethod(m_view->root()->findChild<QObject *>(button), "takeFocus"));
        const QQuickItem *before = focused();
        m_view->type(Qt::Key_Space);
        QCOMPARE(m_view->items(view).size(), 1);
        QVERIFY(m_view->items(view).first()->isAncestorOf(focused()) ||
                m_view->items(view).first() == focused());
        m_view->type(Qt::Key_Escape);
        QVERIFY(!m_view->has(view));
        QCOMPARE(focused(), before);
    }

    /// The release of the space bar went to another control, or to another window.
    void spaceThatWasReleasedElsewherePressesNothing() {
        QVERIFY(QMetaObject::invokeMethod(m_view->root()->findChild<QObject *>("key2Button"), "takeFocus"));
        const QQuickItem *before = focused();
        QTest::keyPress(&m_view->widget(), Qt::Key_Space);
        m_view->type(Qt::Key_Tab);
        QVERIFY(focused() != before);
        m_view->type(Qt::Key_Backtab);
        QCOMPARE(focused(), before);
        QTest::keyRelease(&m_view->widget(), Qt::Key_Space);
        QVERIFY(!m_view->has("Key2Window"));
        m_view->type(Qt::Key_Space);
        QVERIFY(m_view->has("Key2Window"));
    }

    void viewOpenedWithTheMouseLeavesTheFocus() {
        const QQuickItem *before = focused();
        m_view->click(key2Button);
        QCOMPARE(focused(), before);
    }

    void escapeInAnOpenListClosesTheList() {
        m_view->click(key2Button);
        const QObject *popup = m_view->openList(key2List);
        m_view->type(Qt::Key_Escape);
        QTRY_VERIFY(!popup->property("visible").toBool());
        QVERIFY(m_view->has("Key2Window"));
    }

    void arrowsChooseAmongTheWidths() {
        m_view->click(key1Button);
        takeFocus("PizhuSetButton2", penPage + QPoint(16, 228));
        // To the right, back, and from the first to the last.
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Left, Qt::Key_Left, Qt::Key_Left})
            m_view->type(key);
        QCOMPARE(m_view->messages, Messages({{ViewMessage::PenThickness, 1},
                                             {ViewMessage::PenThickness, 2},
                                             {ViewMessage::PenThickness, 1},
                                             {ViewMessage::PenThickness, 0},
                                             {ViewMessage::PenThickness, 3}}));
    }

    void arrowsChooseInThePalette() {
        m_view->click(key1Button);
        m_view->push(ViewMessage::PenColor0, 3);
        m_view->messages.clear();
        takeFocus("PizhuSetButton1", penPage + QPoint(153, 100)); // blue
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Left, Qt::Key_Up})
            m_view->type(key);
        QCOMPARE(m_view->messages, Messages({{ViewMessage::PenColor0, 7},
                                             {ViewMessage::PenColor0, 6},
                                             {ViewMessage::PenColor0, 2}}));
    }

private:
    QQuickItem *focused() { return m_view->root()->window()->activeFocusItem(); }
    void takeFocus(const char *type, const QPoint &corner) {
        QVERIFY(QMetaObject::invokeMethod(m_view->item(type, corner), "takeFocus"));
    }
};

VEXA_WIDGET_TEST_MAIN(KeyboardTest)
#include "KeyboardTest.moc"
