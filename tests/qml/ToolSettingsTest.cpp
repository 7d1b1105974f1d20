// SPDX-License-Identifier: MIT
#include "qml/PanelView.h"
#include "support/TestMain.h"

#include <cmath>

namespace {

constexpr int spotlight = 0;
constexpr int magnifier = 1;
constexpr int laser = 2;
const QPoint view(30 + 20, 87 + 208);
const QPoint firstSlider = view + QPoint(16, 176);
const QPoint secondSlider = view + QPoint(16, 228);
const QPointF middleOfPreview = QPointF(view) + QPointF(16 + 175 / 2.0, 34 + 99 / 2.0);
constexpr int sliderWidth = 175;
constexpr int handle = 12;
constexpr int middleOfTrack = 3;

} // namespace

/// The settings of the three tools: sliders, previews and messages.
class ToolSettingsTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_view = std::make_unique<PanelView>();
        m_view->click({296 + 12, 196 + 12});
    }
    void cleanup() { m_view.reset(); }

    void slidersHaveTheirRanges_data() {
        QTest::addColumn<int>("tool");
        QTest::addColumn<QPoint>("slider");
        QTest::addColumn<int>("least");
        QTest::addColumn<int>("most");
        QTest::newRow("laser color") << laser << firstSlider << 0 << 1275;
        QTest::newRow("laser size") << laser << secondSlider << 5 << 25;
        QTest::newRow("magnifier color") << magnifier << firstSlider << 0 << 1275;
        QTest::newRow("magnifier size") << magnifier << secondSlider << 50 << 250;
        QTest::newRow("spotlight darkness") << spotlight << firstSlider << 80 << 255;
        QTest::newRow("spotlight size") << spotlight << secondSlider << 50 << 250;
    }
    void slidersHaveTheirRanges() {
        QFETCH(int, tool);
        QFETCH(QPoint, slider);
        QFETCH(int, least);
        QFETCH(int, most);
        m_view->push(15, tool);
        const QQuickItem *item = sliderAt(slider);
        QVERIFY(item != nullptr);
        QCOMPARE(item->property("minsize").toInt(), least);
        QCOMPARE(item->property("maxsize").toInt(), most);
        m_view->click(at(slider, 1));
        QCOMPARE(item->property("curValue").toInt(), most);
        m_view->click(at(slider, 0));
        QCOMPARE(item->property("curValue").toInt(), least);
    }

    void slidersReportUnderTheirIdentifier_data() {
        QTest::addColumn<int>("tool");
        QTest::addColumn<QPoint>("slider");
        QTest::addColumn<int>("id");
        QTest::addColumn<int>("middle");
        QTest::newRow("spotlight darkness") << spotlight << firstSlider << 2 << 168;
        QTest::newRow("spotlight size") << spotlight << secondSlider << 3 << 150;
        QTest::newRow("magnifier color") << magnifier << firstSlider << 4 << 638;
        QTest::newRow("magnifier size") << magnifier << secondSlider << 5 << 150;
        QTest::newRow("laser color") << laser << firstSlider << 6 << 638;
        QTest::newRow("laser size") << laser << secondSlider << 7 << 15;
    }
    void slidersReportUnderTheirIdentifier() {
        QFETCH(int, tool);
        QFETCH(QPoint, slider);
        QFETCH(int, id);
        QFETCH(int, middle);
        m_view->push(15, tool);
        m_view->messages.clear();
        m_view->click(at(slider, 0.5));
        QCOMPARE(m_view->messages.size(), 1);
        const Message message = m_view->messages.first();
        QCOMPARE(message.id, id);
        QCOMPARE(message.var2, 0);
        // A point of the screen is several steps of a long range.
        const int range =
            sliderAt(slider)->property("maxsize").toInt() - sliderAt(slider)->property("minsize").toInt();
        QVERIFY(std::abs(message.var1 - middle) <= 1 + range / (sliderWidth - handle));
        QCOMPARE(sliderAt(slider)->property("curValue").toInt(), message.var1);
    }

    void laserSizeSliderAtItsEndIs25() {
        m_view->push(15, laser);
        m_view->click(at(secondSlider, 1));
        QCOMPARE(m_view->messages, QList<Message>({{7, 25, 0}}));
    }

    void clickThatDoesNotMoveTheSliderReportsItsValueAgain() {
        m_view->push(15, laser);
        m_view->push(7, 15);
        m_view->messages.clear();
        m_view->click(at(secondSlider, 0.5));
        QCOMPARE(m_view->messages, QList<Message>({{7, 15, 0}}));
        m_view->push(6, 1275);
        m_view->messages.clear();
        m_view->click(at(firstSlider, 1));
        QCOMPARE(m_view->messages, QList<Message>({{6, 1275, 0}}));
    }

    void wholeHandleCanBeGrabbed() {
        m_view->push(15, laser);
        for (const int y : {-6, 5}) {
            m_view->push(7, 15);
            m_view->messages.clear();
            m_view->click(at(secondSlider, 1) + QPoint(0, y));
            QCOMPARE(m_view->messages, QList<Message>({{7, 25, 0}}));
            m_view->push(6, 0);
            m_view->messages.clear();
            m_view->click(at(firstSlider, 1) + QPoint(0, y));
            QCOMPARE(m_view->messages, QList<Message>({{6, 1275, 0}}));
        }
    }

    void dragReportsEveryValue() {
        m_view->push(15, laser);
        m_view->push(7, 5);
        m_view->messages.clear();
        m_view->press(at(secondSlider, 0));
        for (int size = 6; size <= 25; ++size)
            m_view->moveTo(at(secondSlider, (size - 5) / 20.0));
        m_view->release(at(secondSlider, 1));
        QCOMPARE(m_view->messages.size(), 20);
        for (int i = 0; i < 20; ++i)
            QCOMPARE(m_view->messages.at(i), Message({7, 6 + i, 0}));
    }

    void keyboardMovesASlider() {
        m_view->push(15, laser);
        m_view->push(7, 10);
        m_view->messages.clear();
        m_view->widget().activateWindow();
        QTRY_VERIFY(m_view->widget().isActiveWindow());
        auto *slider = sliderAt(secondSlider)->property("slider").value<QQuickItem *>();
        QVERIFY(slider != nullptr);
        slider->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(&m_view->widget(), Qt::Key_Right);
        QCOMPARE(m_view->messages.first(), Message({7, 11, 0}));
    }

    void colorSliderMapsValuesAsTheToolsDo_data() {
        QTest::addColumn<int>("value");
        QTest::addColumn<QColor>("color");
        const auto row = [](int value, int red, int green, int blue) {
            QTest::addRow("%d", value) << value << QColor(red, green, blue);
        };
        row(1, 255, 1, 0);
        row(255, 255, 255, 0);
        row(256, 1, 0, 0);
        row(510, 255, 0, 0);
        row(511, 0, 255, 1);
        row(765, 0, 255, 255);
        row(766, 0, 1, 255);
        row(1020, 0, 255, 255);
        row(1021, 1, 0, 255);
        row(1274, 254, 0, 255);
        row(1275, 255, 255, 255);
        row(0, 0, 0, 0);
    }
    void colorSliderMapsValuesAsTheToolsDo() {
        QFETCH(int, value);
        QFETCH(QColor, color);
        for (const auto &[tool, id] : {std::pair(laser, 6), std::pair(magnifier, 4)}) {
            m_view->push(15, tool);
            m_view->push(id, value);
            QCOMPARE(sliderAt(firstSlider)->property("curColor").value<QColor>(), color);
        }
    }

    void previewsShowColorAndSizeAfterAPush_data() {
        QTest::addColumn<int>("size");
        QTest::addColumn<double>("laserDiameter");
        QTest::addColumn<double>("lensDiameter");
        QTest::addColumn<double>("lightDiameter");
        QTest::newRow("least") << 0 << 5.0 << 50 / 4.0 << 50 / 3.5;
        QTest::newRow("middle") << 1 << 13.0 << 177 / 4.0 << 183 / 3.5;
        QTest::newRow("most") << 2 << 25.0 << 250 / 4.0 << 250 / 3.5;
    }
    void previewsShowColorAndSizeAfterAPush() {
        QFETCH(int, size);
        QFETCH(double, laserDiameter);
        QFETCH(double, lensDiameter);
        QFETCH(double, lightDiameter);
        const QList<int> laserSizes{5, 13, 25};
        const QList<int> lensSizes{50, 177, 250};
        const QList<int> lightSizes{50, 183, 250};

        m_view->push(15, laser);
        m_view->push(6, 22);
        m_view->push(7, laserSizes.at(size));
        const QQuickItem *dot = shape(QStringLiteral("QQuickRectangle"));
        QVERIFY(dot != nullptr);
        QCOMPARE(dot->width(), laserDiameter);
        QCOMPARE(dot->property("color").value<QColor>(), QColor(255, 22, 0));
        QCOMPARE(m_view->pixel(middleOfPreview.toPoint()), QColor(255, 22, 0));

        m_view->push(15, magnifier);
        m_view->push(4, 890);
        m_view->push(5, lensSizes.at(size));
        const QQuickItem *ring = shape(QStringLiteral("QQuickRectangle"));
        QVERIFY(ring != nullptr);
        QCOMPARE(ring->width(), lensDiameter);
        QCOMPARE(ring->property("color").value<QColor>().alpha(), 0);
        QCOMPARE(ring->property("border").value<QObject *>()->property("width").toInt(), 2);
        QCOMPARE(m_view->pixel((middleOfPreview - QPointF(lensDiameter / 2 - 1, 0)).toPoint()),
                 QColor(0, 125, 255));

        m_view->push(15, spotlight);
        m_view->push(3, lightSizes.at(size));
        const QQuickItem *light = shape(QStringLiteral("QQuickItem"));
        QVERIFY(light != nullptr);
        QCOMPARE(light->width(), lightDiameter);
    }

    void previewsBeginAtTheirFirstSizes() {
        QCOMPARE(shape(QStringLiteral("QQuickItem"))->width(), 60.0);
        m_view->push(15, magnifier);
        QCOMPARE(shape(QStringLiteral("QQuickRectangle"))->width(), 10.0);
        m_view->push(15, laser);
        QCOMPARE(shape(QStringLiteral("QQuickRectangle"))->width(), 10.0);
    }

    void spotlightPreviewVeilsAllButTheCircle() {
        m_view->push(15, laser);
        m_view->push(6, 1275);
        m_view->push(7, 5);
        const QImage plain = m_view->widget().grabFramebuffer();
        m_view->push(15, spotlight);
        m_view->push(2, 204); // 80 percent
        m_view->push(3, 210); // 60 points wide
        const QImage veiled = m_view->widget().grabFramebuffer();
        const QPoint middle = middleOfPreview.toPoint();
        int inside = 0;
        int outside = 0;
        for (int y = view.y() + 36; y < view.y() + 34 + 97; ++y) {
            for (int x = view.x() + 18; x < view.x() + 16 + 173; ++x) {
                const double distance = std::hypot(x - middle.x(), y - middle.y());
                const QColor before = plain.pixelColor(x, y);
                const QColor after = veiled.pixelColor(x, y);
                if (distance > 5 && distance < 28) {
                    QVERIFY2(std::abs(after.lightness() - before.lightness()) <= 3,
                             qPrintable(QString("%1,%2").arg(x).arg(y)));
                    ++inside;
                } else if (distance > 33) {
                    QVERIFY2(std::abs(after.red() - before.red() * 0.2) <= 3,
                             qPrintable(QString("%1,%2").arg(x).arg(y)));
                    ++outside;
                }
            }
        }
        QVERIFY(inside > 2000 && outside > 8000);
    }

    void identifier15ShowsAndHidesAView() {
        for (const auto &[tool, type] :
             {std::pair(spotlight, "SportLightSetWindow"), std::pair(magnifier, "MagnifierSetWindow"),
              std::pair(laser, "LightpenSetWindow")}) {
            m_view->push(15, tool);
            QQuickItem *item = m_view->items(QString::fromLatin1(type)).first();
            for (const bool shown : {false, true}) {
                QVERIFY(QMetaObject::invokeMethod(item, "setvalue", Q_ARG(QVariant, 15),
                                                  Q_ARG(QVariant, tool), Q_ARG(QVariant, shown)));
                QCOMPARE(item->isVisible(), shown);
            }
        }
    }

private:
    QQuickItem *sliderAt(const QPoint &corner) { return m_view->item(QStringLiteral("ValueSet"), corner); }
    /// The place of a slider where it takes this share of its range.
    static QPoint at(const QPoint &slider, double share) {
        return slider + QPoint(static_cast<int>(std::lround(handle / 2.0 + share * (sliderWidth - handle))),
                               middleOfTrack);
    }
    /// The round piece in the middle of the preview, of this type.
    QQuickItem *shape(const QString &type) {
        for (QQuickItem *item : m_view->items(type)) {
            const QPointF middle = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
            if ((middle - middleOfPreview).manhattanLength() <= 1 && item->width() == item->height())
                return item;
        }
        return nullptr;
    }

    std::unique_ptr<PanelView> m_view;
};

VEXA_WIDGET_TEST_MAIN(ToolSettingsTest)
#include "ToolSettingsTest.moc"
