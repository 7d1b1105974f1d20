// SPDX-License-Identifier: MIT
#include "qml/PanelTest.h"
#include "support/TestMain.h"

using namespace places;

/// The looks of what shows or offers an action: the box of a fixed one and the list, closed and open.
class ListLooksTest : public PanelTest {
    Q_OBJECT

private slots:
    void textBoxHasItsLooks() {
        m_view->click(key2Button);
        const QPoint corner = key2View + QPoint(20, 42);
        QQuickItem *box = m_view->item("MyTextBox", corner);
        QVERIFY(qml::is(box, "radius: 5; borderColor: #707070; fillColor: transparent"));
        QCOMPARE(m_view->pixel(corner + QPoint(100, 0)), QColor(0x70, 0x70, 0x70));
        QCOMPARE(box->childItems().size(), 1);
        QQuickItem *text = box->childItems().first();
        QVERIFY(qml::is(
            text, "text: 上一页; x: 10; font.pixelSize: 13; font.family: Arial; color: #7d7d7d; elide: 1"));
        QCOMPARE(text->y() + text->height() / 2, 15.0);
    }

    void listHasItsLooks() {
        m_view->click(key2Button);
        QQuickItem *list = m_view->list(key2List);
        QVERIFY(qml::is(
            list, "fillColor: #2F2F2F; borderColor: #606060; selectFillColor: #3D3D3D; font.pixelSize: 13"));
        m_view->moveTo({500, 300});
        QTRY_COMPARE(m_view->pixel(key2List + QPoint(100, 4)), QColor(0x2f, 0x2f, 0x2f));
        QTRY_COMPARE(m_view->pixel(key2List + QPoint(100, 0)), QColor(0x60, 0x60, 0x60));
        QVERIFY(qml::is(list->property("indicator").value<QQuickItem *>(),
                        "width: 12; x: 187; source: qrc:/icon-down@3x.png"));
        QVERIFY(qml::is(list->property("contentItem").value<QQuickItem *>(), "color: #7d7d7d"));
        m_view->click(settingsButton);
        QVERIFY(qml::is(m_view->list(languageBox), "font.pixelSize: 12"));
    }

    void openListHasItsLooks() {
        m_view->click(key2Button);
        auto *content = m_view->openList(key2List)->property("background").value<QQuickItem *>();
        QCOMPARE(qml::corner(content), QPointF(key2List + QPoint(0, 30)));
        QCOMPARE(content->size(), QSizeF(207, 5 * 30 + 2));
        QVERIFY(qml::is(m_view->list(key2List)->property("indicator").value<QQuickItem *>(),
                        "source: qrc:/icon-up@3x.png"));
        const auto rowTexts = [content] {
            QList<QQuickItem *> texts;
            for (QQuickItem *item : qml::tree(content->parentItem()))
                if (item->isVisible() && qml::isOfType(item, "QQuickText"))
                    texts.append(item);
            return texts;
        };
        QTRY_COMPARE(rowTexts().size(), actionNames.size());
        for (int row = 0; row < actionNames.size(); ++row) {
            QQuickItem *text = rowTexts().at(row);
            QVERIFY(qml::is(text, "color: #7d7d7d; font.pixelSize: 13; font.family: Arial; text: " +
                                      actionNames.at(row)));
            QCOMPARE(qml::corner(text).y() + text->height() / 2, key2List.y() + 30.0 + 1 + row * 30 + 15);
        }
        // Row 2 under the pointer, row 3 not.
        const QPoint row2 = key2List + QPoint(150, 30 + 1 + 2 * 30 + 5);
        QTRY_COMPARE((m_view->jiggle(row2), m_view->pixel(row2)), QColor(0x3d, 0x3d, 0x3d));
        QTRY_COMPARE(m_view->pixel(row2 + QPoint(0, 30)), QColor(0x2f, 0x2f, 0x2f));
    }

    void rowIsLitByThePointerAndRingedByTheKeyboard() {
        m_view->click(key2Button);
        m_view->push(ViewMessage::Key2P, KeyAction::Blackboard);
        const auto row = [](int index) { return key2List + QPoint(190, 30 + 1 + index * 30); };
        const QPoint inside(0, 5);
        m_view->openList(key2List);
        m_view->moveTo(key2List + QPoint(190, 15)); // off the rows
        const QColor plain(0x2f, 0x2f, 0x2f);
        const QColor lit(0x3d, 0x3d, 0x3d);
        const QColor ring(0xff, 0xcc, 0x0d);
        QTRY_COMPARE(m_view->pixel(row(3) + inside), plain); // the present choice
        QCOMPARE(m_view->pixel(row(3)), plain);
        m_view->activate();
        m_view->list(key2List)->forceActiveFocus();
        m_view->type(Qt::Key_Up);
        QTRY_COMPARE(m_view->pixel(row(2)), ring);
        QCOMPARE(m_view->pixel(row(2) + inside), plain);
        QTRY_COMPARE((m_view->jiggle(row(4) + inside), m_view->pixel(row(4) + inside)), lit);
        for (int index = 0; index < 5; ++index)
            QTRY_COMPARE(m_view->pixel(row(index)), index == 4 ? lit : plain);
    }
};

VEXA_WIDGET_TEST_MAIN(ListLooksTest)
#include "ListLooksTest.moc"
