// SPDX-License-Identifier: MIT
#include "qml/PanelTest.h"
#include "support/TestMain.h"

#include <QRegularExpression>

using namespace places;

namespace {

const QList<QPoint> slotPlaces{{31, 40}, {91, 40}, {151, 40}};
const QList<QPoint> palettePlaces{{33, 100}, {73, 100}, {111, 100}, {153, 100},
                                  {33, 143}, {73, 143}, {113, 143}, {153, 143}};
const QList<QPoint> widthPlaces{{16, 228}, {67, 228}, {117, 228}, {167, 228}};
const QList<ViewMessage> slotMessages{ViewMessage::PenColor0, ViewMessage::PenColor1, ViewMessage::PenColor2};
const QStringList colors{"#000000", "#FFFFFF", "#FF0000", "#009EF8",
                         "#82FF20", "#FFCC0D", "#ED18FF", "#9C1FFF"};
const QStringList storedColors{colors.at(3), colors.at(1), colors.at(2)};

} // namespace

/// The pen penPage of key 1: three slots, eight colours, four widths.
class PenColourTest : public PanelTest {
    Q_OBJECT

private slots:
    void init() {
        PanelTest::init();
        m_view->click(key1Button);
    }

    void storedValuesAreShownAndComeBackOnce() {
        QCOMPARE(pushStored(), Messages({{ViewMessage::PenColor0, 3}, {ViewMessage::PenThickness, 1}}));
        QCOMPARE(pushStored(), Messages());
        QCOMPARE(slotColors(), storedColors);
        QCOMPARE(checkedSlots(), QList<int>{0});
        QCOMPARE(marks(), QStringList{"qrc:/frame-1.png"});
        QCOMPARE(checkedSwatches(), QList<int>{3});
        QCOMPARE(checkedWidths(), QList<int>{1});
        QCOMPARE(pen()->property("curpenColorID").toInt(), 0);
    }

    void clickOnTheCheckedSwatchOrWidthSendsNothing() {
        pushStored();
        click(palettePlaces.at(3));
        click(widthPlaces.at(1));
        QCOMPARE(m_view->messages, Messages());
        QCOMPARE(checkedSwatches(), QList<int>{3});
    }

    void selectingASlotMarksItAndSendsItsOwnColour() {
        pushStored();
        click(slotPlaces.at(1));
        QCOMPARE(m_view->messages, Messages({{ViewMessage::PenColor1, 1}}));
        QCOMPARE(checkedSlots(), QList<int>{1});
        QCOMPARE(marks(), QStringList{"qrc:/frame-2.png"});
        QCOMPARE(checkedSwatches(), QList<int>{1});
        QCOMPARE(slotColors(), storedColors);
        click(slotPlaces.at(2));
        QCOMPARE(m_view->messages, Messages({{ViewMessage::PenColor1, 1}, {ViewMessage::PenColor2, 2}}));
        QCOMPARE(marks(), QStringList{"qrc:/frame-3.png"});
    }

    void selectingASlotOfTheSameColourSendsNothing() {
        pushStored();
        m_view->push(ViewMessage::PenColor1, 3);
        click(slotPlaces.at(1));
        QCOMPARE(m_view->messages, Messages());
        QCOMPARE(checkedSlots(), QList<int>{1});
    }

    void everySwatchCanBeChosenForEverySlot() {
        pushStored();
        QStringList shown = storedColors;
        for (int slot = 0; slot < slotPlaces.size(); ++slot) {
            click(slotPlaces.at(slot));
            for (int step = 1; step <= palettePlaces.size(); ++step) {
                const int swatch = (checkedSwatches().first() + 1) % palettePlaces.size();
                m_view->messages.clear();
                click(palettePlaces.at(swatch));
                QCOMPARE(m_view->messages, Messages({{slotMessages.at(slot), swatch}}));
                shown[slot] = colors.at(swatch);
                QCOMPARE(slotColors(), shown);
            }
        }
    }

    void everyWidthCanBeChosen() {
        for (const int width : {1, 0, 3, 2}) {
            click(widthPlaces.at(width));
            QCOMPARE(m_view->takeMessages(), Messages({{ViewMessage::PenThickness, width}}));
            QCOMPARE(checkedWidths(), QList<int>{width});
        }
    }

    void coloursAndWidthsOutsideTheListsChangeNothing() {
        pushStored();
        for (const ViewMessage message : slotMessages + QList<ViewMessage>{ViewMessage::PenThickness}) {
            m_view->push(message, 8);
            m_view->push(message, -1);
        }
        QCOMPARE(m_view->messages, Messages());
        QCOMPARE(slotColors(), storedColors);
        QCOMPARE(checkedWidths(), QList<int>{1});
    }

    void colourOutsideTheListStillChecksTheFirstSlot() {
        m_view->push(ViewMessage::PenColor0, 8);
        QCOMPARE(checkedSlots(), QList<int>{0});
        QCOMPARE(slotColors().first(), colors.first());
        QCOMPARE(m_view->messages, Messages({{ViewMessage::PenColor0, 0}})); // what the slot shows
        click(slotPlaces.at(2));
        m_view->push(ViewMessage::PenColor0, -1);
        QCOMPARE(checkedSlots(), QList<int>{0});
    }

    void colourPushedForTheCheckedSlotLeavesThePalette() {
        pushStored();
        m_view->push(ViewMessage::PenColor0, 5);
        QCOMPARE(slotColors().first(), colors.at(5));
        QCOMPARE(checkedSwatches(), QList<int>{3});
        QCOMPARE(m_view->messages, Messages());
    }

    void coloursAreThePens() {
        for (int i = 0; i < colors.size(); ++i) {
            QCOMPARE(pen()->property(qPrintable(QString("pencolormenu%1").arg(i))).toString(), colors.at(i));
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
        QTRY_VERIFY((m_view->jiggle({500, 300}), yellow(m_view->pixel(penPage + palettePlaces.at(3) + top))));
        QVERIFY(!yellow(m_view->pixel(penPage + palettePlaces.at(2) + top)));
    }

private:
    QQuickItem *pen() { return m_view->items("PizhuSetPenColor").first(); }
    /// What the panel answers to stored values; forgotten then.
    Messages pushStored() {
        for (const auto &[message, value] :
             {std::pair(ViewMessage::PenColor0, 3), std::pair(ViewMessage::PenColor1, 1),
              std::pair(ViewMessage::PenColor2, 2), std::pair(ViewMessage::PenThickness, 1)})
            m_view->push(message, value);
        return m_view->takeMessages();
    }
    void click(const QPoint &corner) { m_view->click(penPage + corner + QPoint(11, 11)); }
    /// The indices of those that are checked.
    QList<int> checked(const char *type, const QList<QPoint> &places) {
        QList<int> found;
        for (int i = 0; i < places.size(); ++i)
            if (m_view->shown(type, penPage + places.at(i), "checked").toBool())
                found += i;
        return found;
    }
    QList<int> checkedSlots() { return checked("PizhuSetButton1", slotPlaces); }
    QList<int> checkedSwatches() { return checked("PizhuSetButton1", palettePlaces); }
    QList<int> checkedWidths() { return checked("PizhuSetButton2", widthPlaces); }
    /// What each slot is told to show, and shows; another word where the two differ.
    QStringList slotColors() {
        QStringList found;
        for (int slot = 0; slot < slotPlaces.size(); ++slot) {
            const QString told = pen()->property(qPrintable(QString("pencolor%1").arg(slot))).toString();
            const QColor seen = m_view->pixel(penPage + slotPlaces.at(slot) + QPoint(13, 13));
            found += seen == QColor(told) ? told : told + " shown as " + seen.name();
        }
        return found;
    }
    QStringList marks() {
        QStringList shown;
        for (const QQuickItem *picture : m_view->items("QQuickImage"))
            shown += picture->property("source").toString();
        return shown.filter(QRegularExpression("^qrc:/frame-[123].png$"));
    }
};

VEXA_WIDGET_TEST_MAIN(PenColourTest)
#include "PenColourTest.moc"
