// SPDX-License-Identifier: MIT
#include "qml/PanelView.h"
#include "support/TestMain.h"

namespace {

const QPoint page(712 + 30, 87 + 114);
const QList<QPoint> slotPlaces{{31, 40}, {91, 40}, {151, 40}};
const QList<QPoint> palettePlaces{{33, 100}, {73, 100}, {111, 100}, {153, 100},
                                  {33, 143}, {73, 143}, {113, 143}, {153, 143}};
const QList<QPoint> widthPlaces{{16, 228}, {67, 228}, {117, 228}, {167, 228}};
const QStringList colors{"#000000", "#FFFFFF", "#FF0000", "#009EF8",
                         "#82FF20", "#FFCC0D", "#ED18FF", "#9C1FFF"};

} // namespace

/// The pen page of key 1: three slots, eight colours, four widths.
class PenColourTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_view = std::make_unique<PanelView>();
        m_view->click({679 + 12, 457 + 12});
    }
    void cleanup() { m_view.reset(); }

    void storedValuesAreShown() {
        pushStored();
        QCOMPARE(slotColors(), QStringList({"#009EF8", "#FFFFFF", "#FF0000"}));
        for (int slot = 0; slot < 3; ++slot)
            QCOMPARE(m_view->pixel(page + slotPlaces.at(slot) + QPoint(13, 13)),
                     QColor(slotColors().at(slot)));
        QCOMPARE(checkedSlots(), QList<int>{0});
        QCOMPARE(marks(), QStringList{"qrc:/frame-1.png"});
        QCOMPARE(checkedSwatches(), QList<int>{3});
        QCOMPARE(checkedWidths(), QList<int>{1});
        QCOMPARE(pen()->property("curpenColorID").toInt(), 0);
    }

    void storedValuesComeBackOnce() {
        pushStored();
        QCOMPARE(m_view->messages, QList<Message>({{8, 3, 0}, {11, 1, 0}}));
        m_view->messages.clear();
        pushStored();
        QCOMPARE(m_view->messages, QList<Message>());
    }

    void editingSlot2ToSwatch6SendsItAndTurnsTheSlot() {
        pushStored();
        click(slotPlaces.at(2));
        m_view->messages.clear();
        click(palettePlaces.at(6));
        QCOMPARE(m_view->messages, QList<Message>({{10, 6, 0}}));
        QCOMPARE(slotColors(), QStringList({"#009EF8", "#FFFFFF", "#ED18FF"}));
        QCOMPARE(m_view->pixel(page + slotPlaces.at(2) + QPoint(13, 13)), QColor("#ED18FF"));
    }

    void clickOnTheCheckedSwatchSendsNothing() {
        pushStored();
        m_view->messages.clear();
        click(palettePlaces.at(3));
        QCOMPARE(m_view->messages, QList<Message>());
        QCOMPARE(checkedSwatches(), QList<int>{3});
    }

    void selectingASlotMarksItAndSendsItsOwnColour() {
        pushStored();
        m_view->messages.clear();
        click(slotPlaces.at(1));
        QCOMPARE(m_view->messages, QList<Message>({{9, 1, 0}}));
        QCOMPARE(checkedSlots(), QList<int>{1});
        QCOMPARE(marks(), QStringList{"qrc:/frame-2.png"});
        QCOMPARE(checkedSwatches(), QList<int>{1});
        QCOMPARE(slotColors(), QStringList({"#009EF8", "#FFFFFF", "#FF0000"}));
        click(slotPlaces.at(2));
        QCOMPARE(m_view->messages, QList<Message>({{9, 1, 0}, {10, 2, 0}}));
        QCOMPARE(marks(), QStringList{"qrc:/frame-3.png"});
    }

    void selectingASlotOfTheSameColourSendsNothing() {
        pushStored();
        m_view->push(9, 3);
        m_view->messages.clear();
        click(slotPlaces.at(1));
        QCOMPARE(m_view->messages, QList<Message>());
        QCOMPARE(checkedSlots(), QList<int>{1});
    }

    void everySwatchCanBeChosenForEverySlot() {
        pushStored();
        for (int slot = 0; slot < slotPlaces.size(); ++slot) {
            click(slotPlaces.at(slot));
            for (int step = 1; step <= palettePlaces.size(); ++step) {
                const int swatch = (checkedSwatches().first() + 1) % palettePlaces.size();
                m_view->messages.clear();
                click(palettePlaces.at(swatch));
                QCOMPARE(m_view->messages, QList<Message>({{8 + slot, swatch, 0}}));
                QCOMPARE(slotColors().at(slot), colors.at(swatch));
            }
        }
    }

    void everyWidthCanBeChosen() {
        for (const int width : {1, 0, 3, 2}) {
            m_view->messages.clear();
            click(widthPlaces.at(width));
            QCOMPARE(m_view->messages, QList<Message>({{11, width, 0}}));
            QCOMPARE(checkedWidths(), QList<int>{width});
        }
    }

    void clickOnTheCheckedWidthSendsNothing() {
        pushStored();
        m_view->messages.clear();
        click(widthPlaces.at(1));
        QCOMPARE(m_view->messages, QList<Message>());
    }

    void coloursAndWidthsOutsideTheListsChangeNothing() {
        pushStored();
        m_view->messages.clear();
        for (const int id : {8, 9, 10, 11}) {
            m_view->push(id, 8);
            m_view->push(id, -1);
        }
        QCOMPARE(m_view->messages, QList<Message>());
        QCOMPARE(slotColors(), QStringList({"#009EF8", "#FFFFFF", "#FF0000"}));
        QCOMPARE(checkedWidths(), QList<int>{1});
    }

    void colourOutsideTheListStillChecksTheFirstSlot() {
        m_view->push(8, 8);
        QCOMPARE(checkedSlots(), QList<int>{0});
        QCOMPARE(slotColors().first(), colors.first());
        QCOMPARE(m_view->messages, QList<Message>({{8, 0, 0}})); // what the slot shows
        click(slotPlaces.at(2));
        m_view->push(8, -1);
        QCOMPARE(checkedSlots(), QList<int>{0});
    }

    void colourPushedForTheCheckedSlotLeavesThePalette() {
        pushStored();
        m_view->messages.clear();
        m_view->push(8, 5);
        QCOMPARE(slotColors().first(), colors.at(5));
        QCOMPARE(checkedSwatches(), QList<int>{3});
        QCOMPARE(m_view->messages, QList<Message>());
    }

    void coloursAreThePens() {
        for (int i = 0; i < colors.size(); ++i) {
            QCOMPARE(pen()->property(qPrintable(QStringLiteral("pencolormenu%1").arg(i))).toString(),
                     colors.at(i));
            QVariant color;
            QVERIFY(QMetaObject::invokeMethod(pen(), "getColorString", Q_RETURN_ARG(QVariant, color),
                                              Q_ARG(QVariant, i)));
            QCOMPARE(color.toString(), colors.at(i));
        }
    }

    void checkedSwatchHasAYellowRing() {
        pushStored();
        // The ring is thin and round: its pixels are almost, not quite, of its colour.
        const auto yellow = [](const QColor &color) {
            return color.red() > 220 && color.green() > 170 && color.blue() < 60;
        };
        const QPoint top(13, 0);
        QTRY_VERIFY((m_view->jiggle({500, 300}), yellow(m_view->pixel(page + palettePlaces.at(3) + top))));
        QVERIFY(!yellow(m_view->pixel(page + palettePlaces.at(2) + top)));
    }

private:
    QQuickItem *pen() { return m_view->items(QStringLiteral("PizhuSetPenColor")).first(); }
    void pushStored() {
        m_view->push(8, 3);
        m_view->push(9, 1);
        m_view->push(10, 2);
        m_view->push(11, 1);
    }
    void click(const QPoint &corner) { m_view->click(page + corner + QPoint(11, 11)); }
    /// The indices of those that are checked.
    QList<int> checked(const char *type, const QList<QPoint> &places) {
        QList<int> found;
        for (int i = 0; i < places.size(); ++i) {
            const QQuickItem *item = m_view->item(QString::fromLatin1(type), page + places.at(i));
            if (item != nullptr && item->property("checked").toBool())
                found.append(i);
        }
        return found;
    }
    QList<int> checkedSlots() { return checked("PizhuSetButton1", slotPlaces); }
    QList<int> checkedSwatches() { return checked("PizhuSetButton1", palettePlaces); }
    QList<int> checkedWidths() { return checked("PizhuSetButton2", widthPlaces); }
    QStringList slotColors() {
        return {pen()->property("pencolor0").toString(), pen()->property("pencolor1").toString(),
                pen()->property("pencolor2").toString()};
    }
    QStringList marks() {
        QStringList shown;
        for (const QQuickItem *picture : m_view->items(QStringLiteral("QQuickImage"))) {
            const QString source = picture->property("source").toString();
            if (QStringList{"qrc:/frame-1.png", "qrc:/frame-2.png", "qrc:/frame-3.png"}.contains(source))
                shown.append(source);
        }
        return shown;
    }

    std::unique_ptr<PanelView> m_view;
};

VEXA_WIDGET_TEST_MAIN(PenColourTest)
#include "PenColourTest.moc"
