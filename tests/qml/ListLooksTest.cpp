// SPDX-License-Identifier: MIT
#include "qml/PanelView.h"
#include "support/TestMain.h"

#include <QFont>

namespace {

const QString grey = QStringLiteral("#7d7d7d");
const QPoint key2(30, 321);
const QPoint key2Button(296 + 12, 457 + 12);
const QPoint settings(722, 207);
const QPoint settingsButton(951 + 9, 598 + 9);

} // namespace

/// The looks of what shows or offers an action: the box of a fixed one and the list, closed and open.
class ListLooksTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_view = std::make_unique<PanelView>(); }
    void cleanup() { m_view.reset(); }

    void textBoxHasItsLooks() {
        m_view->click(key2Button);
        const QPoint corner = key2 + QPoint(20, 42);
        const QQuickItem *box = m_view->item(QStringLiteral("MyTextBox"), corner);
        QVERIFY(box != nullptr);
        QCOMPARE(box->property("radius").toReal(), 5.0);
        QCOMPARE(box->property("borderColor").toString(), QStringLiteral("#707070"));
        QCOMPARE(box->property("fillColor").toString(), QStringLiteral("transparent"));
        QCOMPARE(m_view->pixel(corner + QPoint(100, 0)), QColor(0x70, 0x70, 0x70));
        const QList<QQuickItem *> inside = box->childItems();
        QCOMPARE(inside.size(), 1);
        const QQuickItem *text = inside.first();
        QCOMPARE(text->property("text").toString(), QStringLiteral("上一页"));
        QCOMPARE(text->x(), 10.0);
        QCOMPARE(text->y() + text->height() / 2, 15.0);
        QCOMPARE(text->property("font").value<QFont>().pixelSize(), 13);
        QCOMPARE(text->property("font").value<QFont>().family(), QStringLiteral("Arial"));
        QCOMPARE(text->property("color").value<QColor>().name(), grey);
        QCOMPARE(text->property("elide").toInt(), static_cast<int>(Qt::ElideRight));
    }

    void listHasItsLooks() {
        m_view->click(key2Button);
        const QPoint corner = key2 + QPoint(20, 136);
        QQuickItem *list = m_view->item(QStringLiteral("ComboxControl"), corner);
        QVERIFY(list != nullptr);
        QCOMPARE(list->property("fillColor").toString(), QStringLiteral("#2F2F2F"));
        QCOMPARE(list->property("borderColor").toString(), QStringLiteral("#606060"));
        QCOMPARE(list->property("selectFillColor").toString(), QStringLiteral("#3D3D3D"));
        m_view->moveTo({500, 300});
        QTRY_COMPARE(m_view->pixel(corner + QPoint(100, 4)), QColor(0x2f, 0x2f, 0x2f));
        QTRY_COMPARE(m_view->pixel(corner + QPoint(100, 0)), QColor(0x60, 0x60, 0x60));
        const QQuickItem *arrow = list->property("indicator").value<QQuickItem *>();
        QVERIFY(arrow != nullptr);
        QCOMPARE(arrow->width(), 12.0);
        QCOMPARE(arrow->x(), 207.0 - 20.0);
        QCOMPARE(arrow->property("source").toString(), QStringLiteral("qrc:/icon-down@3x.png"));
        QCOMPARE(
            list->property("contentItem").value<QQuickItem *>()->property("color").value<QColor>().name(),
            grey);
        QCOMPARE(list->property("font").value<QFont>().pixelSize(), 13);

        m_view->click(settingsButton);
        const QQuickItem *languages =
            m_view->item(QStringLiteral("ComboxControl"), settings + QPoint(87, 129));
        QVERIFY(languages != nullptr);
        QCOMPARE(languages->property("font").value<QFont>().pixelSize(), 12);
    }

    void openListHasItsLooks() {
        m_view->click(key2Button);
        const QPoint corner = key2 + QPoint(20, 136);
        QQuickItem *list = m_view->item(QStringLiteral("ComboxControl"), corner);
        QVERIFY(list != nullptr);
        auto *popup = list->property("popup").value<QObject *>();
        m_view->click(corner + QPoint(20, 15));
        QTRY_VERIFY(popup->property("opened").toBool());
        const auto *content = popup->property("background").value<QQuickItem *>();
        QCOMPARE(qml::corner(content), QPointF(corner + QPoint(0, 30)));
        QCOMPARE(content->size(), QSizeF(207, 5 * 30 + 2));
        QCOMPARE(list->property("indicator").value<QQuickItem *>()->property("source").toString(),
                 QStringLiteral("qrc:/icon-up@3x.png"));
        const QStringList actions{"无操作", "PPT放映：开始/结束", "播放器：暂停/播放", "黑板", "屏幕截屏"};
        const auto rowTexts = [content] {
            QList<QQuickItem *> texts;
            for (QQuickItem *item : qml::tree(content->parentItem()))
                if (item->isVisible() && qml::isOfType(item, QStringLiteral("QQuickText")))
                    texts.append(item);
            return texts;
        };
        QTRY_COMPARE(rowTexts().size(), actions.size());
        for (int row = 0; row < actions.size(); ++row) {
            const QQuickItem *text = rowTexts().at(row);
            QCOMPARE(text->property("text").toString(), actions.at(row));
            QCOMPARE(text->property("color").value<QColor>().name(), grey);
            QCOMPARE(text->property("font").value<QFont>().pixelSize(), 13);
            QCOMPARE(text->property("font").value<QFont>().family(), QStringLiteral("Arial"));
            QCOMPARE(qml::corner(text).y() + text->height() / 2, corner.y() + 30.0 + 1 + row * 30 + 15);
        }
        // Row 2 under the pointer, row 3 not.
        const QPoint row2 = corner + QPoint(150, 30 + 1 + 2 * 30 + 5);
        QTRY_COMPARE((m_view->jiggle(row2), m_view->pixel(row2)), QColor(0x3d, 0x3d, 0x3d));
        QTRY_COMPARE(m_view->pixel(row2 + QPoint(0, 30)), QColor(0x2f, 0x2f, 0x2f));
    }

    void rowIsLitByThePointerAndRingedByTheKeyboard() {
        m_view->click(key2Button);
        m_view->push(12, 3);
        const QPoint corner = key2 + QPoint(20, 136);
        const auto row = [corner](int index) { return corner + QPoint(190, 30 + 1 + index * 30); };
        const QPoint inside(0, 5);
        auto *list = m_view->item(QStringLiteral("ComboxControl"), corner);
        m_view->click(corner + QPoint(190, 15));
        QTRY_VERIFY(list->property("popup").value<QObject *>()->property("opened").toBool());
        const QColor plain(0x2f, 0x2f, 0x2f);
        const QColor lit(0x3d, 0x3d, 0x3d);
        const QColor ring(0xff, 0xcc, 0x0d);
        QTRY_COMPARE(m_view->pixel(row(3) + inside), plain); // the present choice
        QCOMPARE(m_view->pixel(row(3)), plain);
        m_view->widget().activateWindow();
        QTRY_VERIFY(m_view->widget().isActiveWindow());
        list->forceActiveFocus();
        QTest::keyClick(&m_view->widget(), Qt::Key_Up);
        QTRY_COMPARE(m_view->pixel(row(2)), ring);
        QCOMPARE(m_view->pixel(row(2) + inside), plain);
        QTRY_COMPARE((m_view->jiggle(row(4) + inside), m_view->pixel(row(4) + inside)), lit);
        for (int index = 0; index < 5; ++index)
            QTRY_COMPARE(m_view->pixel(row(index)), index == 4 ? lit : plain);
    }

private:
    std::unique_ptr<PanelView> m_view;
};

VEXA_WIDGET_TEST_MAIN(ListLooksTest)
#include "ListLooksTest.moc"
