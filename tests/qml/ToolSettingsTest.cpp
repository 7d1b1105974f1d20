// SPDX-License-Identifier: MIT
#include "qml/PanelTest.h"
#include "qml/Sliders.h"
#include "support/Table.h"
#include "support/TestMain.h"

using namespace places;
using namespace sliders;

namespace {

const QPointF middleOfPreview = QPointF(toolSettings) + QPointF(16 + 175 / 2.0, 34 + 99 / 2.0);

} // namespace

/// The settings of the three tools: sliders, previews and messages.
class ToolSettingsTest : public PanelTest {
    Q_OBJECT

    using Sizes = vexa::test::Table<int, int, int>; // of dot, lens and light

private slots:
    void init() {
        PanelTest::init();
        m_view->click(key4Button);
    }

    void slidersHaveTheirRangesAndReportTheirEnds_data() { everySlider(); }
    void slidersHaveTheirRangesAndReportTheirEnds() {
        QFETCH(Slider, slider);
        m_view->push(ViewMessage::Key4P, slider.tool);
        QQuickItem *item = sliderAt(slider.corner);
        QVERIFY(qml::is(item, QString("minsize: %1; maxsize: %2").arg(slider.least).arg(slider.most)));
        m_view->messages.clear();
        for (const int end : {1, 0}) {
            const int value = end == 1 ? slider.most : slider.least;
            m_view->click(at(slider.corner, end));
            QCOMPARE(item->property("curValue").toInt(), value);
            QCOMPARE(m_view->takeMessages(), Messages({{slider.message, value}}));
        }
    }

    void slidersReportUnderTheirIdentifier_data() { everySlider(); }
    void slidersReportUnderTheirIdentifier() {
        QFETCH(Slider, slider);
        m_view->push(ViewMessage::Key4P, slider.tool);
        m_view->messages.clear();
        m_view->click(at(slider.corner, 0.5));
        QCOMPARE(m_view->messages.size(), 1);
        const int value = m_view->messages.first().var1;
        QCOMPARE(m_view->messages.first(), Message({slider.message, value}));
        // A point of the screen is several steps of a long range.
        const double step = 1 + (slider.most - slider.least) / double(width - handle);
        QVERIFY(std::abs(value - (slider.least + slider.most) / 2.0) <= step);
        QCOMPARE(sliderAt(slider.corner)->property("curValue").toInt(), value);
    }

    void clickThatDoesNotMoveTheSliderReportsItsValueAgain() {
        m_view->push(ViewMessage::Key4P, laser);
        reportsAfterAPush(ViewMessage::LaserPenSize, 15, at(secondSlider, 0.5), 15);
        reportsAfterAPush(ViewMessage::LaserPenColor, 1275, at(firstSlider, 1), 1275);
    }

    void wholeHandleCanBeGrabbed() {
        m_view->push(ViewMessage::Key4P, laser);
        for (const QPoint &offTheMiddle : {QPoint(0, -6), QPoint(0, 5)}) {
            reportsAfterAPush(ViewMessage::LaserPenSize, 15, at(secondSlider, 1) + offTheMiddle, 25);
            reportsAfterAPush(ViewMessage::LaserPenColor, 0, at(firstSlider, 1) + offTheMiddle, 1275);
        }
    }

    void dragReportsEveryValue() {
        m_view->push(ViewMessage::Key4P, laser);
        m_view->push(ViewMessage::LaserPenSize, 5);
        m_view->messages.clear();
        m_view->press(at(secondSlider, 0));
        for (int size = 6; size <= 25; ++size)
            m_view->moveTo(at(secondSlider, (size - 5) / 20.0));
        m_view->release(at(secondSlider, 1));
        QCOMPARE(m_view->messages.size(), 20);
        for (int i = 0; i < 20; ++i)
            QCOMPARE(m_view->messages.at(i), Message({ViewMessage::LaserPenSize, 6 + i}));
    }

    void keyboardMovesASlider() {
        m_view->push(ViewMessage::Key4P, laser);
        m_view->push(ViewMessage::LaserPenSize, 10);
        m_view->messages.clear();
        m_view->activate();
        auto *slider = sliderAt(secondSlider)->property("slider").value<QQuickItem *>();
        slider->forceActiveFocus(Qt::TabFocusReason);
        m_view->type(Qt::Key_Right);
        QCOMPARE(m_view->messages.first(), Message({ViewMessage::LaserPenSize, 11}));
    }

    void colorSliderMapsValuesAsTheToolsDo() {
        const std::pair<int, QColor> rows[] = {
            {1, {255, 1, 0}},    {255, {255, 255, 0}},  {256, {1, 0, 0}},        {510, {255, 0, 0}},
            {511, {0, 255, 1}},  {765, {0, 255, 255}},  {766, {0, 1, 255}},      {1020, {0, 255, 255}},
            {1021, {1, 0, 255}}, {1274, {254, 0, 255}}, {1275, {255, 255, 255}}, {0, {0, 0, 0}}};
        for (const auto &[tool, message] : {std::pair(laser, ViewMessage::LaserPenColor),
                                            std::pair(magnifier, ViewMessage::MagnifierColor)}) {
            m_view->push(ViewMessage::Key4P, tool);
            for (const auto &[value, color] : rows) {
                m_view->push(message, value);
                QCOMPARE(sliderAt(firstSlider)->property("curColor").value<QColor>(), color);
            }
        }
    }

    void previewsShowColorAndSizeAfterAPush_data() {
        Sizes::begin();
        QTest::newRow("least") << 5 << 50 << 50;
        QTest::newRow("middle") << 13 << 177 << 183;
        QTest::newRow("most") << 25 << 250 << 250;
    }
    void previewsShowColorAndSizeAfterAPush() {
        const auto [dotSize, lensSize, lightSize] = Sizes::row();
        m_view->push(ViewMessage::Key4P, laser);
        m_view->push(ViewMessage::LaserPenColor, 22);
        m_view->push(ViewMessage::LaserPenSize, dotSize);
        QVERIFY(qml::is(shape("QQuickRectangle"), QString("width: %1; color: #ff1600").arg(dotSize)));
        QCOMPARE(m_view->pixel(middleOfPreview.toPoint()), QColor(255, 22, 0));

        m_view->push(ViewMessage::Key4P, magnifier);
        m_view->push(ViewMessage::MagnifierColor, 890);
        m_view->push(ViewMessage::MagnifierSize, lensSize);
        QVERIFY(qml::is(shape("QQuickRectangle"),
                        QString("width: %1; color: transparent; border.width: 2").arg(lensSize / 4.0)));
        QCOMPARE(m_view->pixel((middleOfPreview - QPointF(lensSize / 8.0 - 1, 0)).toPoint()),
                 QColor(0, 125, 255));

        m_view->push(ViewMessage::Key4P, spotlight);
        m_view->push(ViewMessage::SportLightSize, lightSize);
        const QQuickItem *light = shape("QQuickItem");
        QVERIFY(light);
        QCOMPARE(light->width(), lightSize / 3.5);
    }

    void previewsBeginAtTheirFirstSizes() {
        QCOMPARE(shape("QQuickItem")->width(), 60.0);
        m_view->push(ViewMessage::Key4P, magnifier);
        QCOMPARE(shape("QQuickRectangle")->width(), 10.0);
        m_view->push(ViewMessage::Key4P, laser);
        QCOMPARE(shape("QQuickRectangle")->width(), 10.0);
    }

    void spotlightPreviewVeilsAllButTheCircle() {
        m_view->push(ViewMessage::Key4P, laser);
        m_view->push(ViewMessage::LaserPenColor, 1275);
        m_view->push(ViewMessage::LaserPenSize, 5);
        const QImage plain = m_view->widget().grabFramebuffer();
        m_view->push(ViewMessage::Key4P, spotlight);
        m_view->push(ViewMessage::SportLightTran, 204); // 80 percent
        m_view->push(ViewMessage::SportLightSize, 210); // 60 points wide
        const QImage veiled = m_view->widget().grabFramebuffer();
        const QPoint middle = middleOfPreview.toPoint();
        int inside = 0;
        int outside = 0;
        for (int y = toolSettings.y() + 36; y < toolSettings.y() + 34 + 97; ++y) {
            for (int x = toolSettings.x() + 18; x < toolSettings.x() + 16 + 173; ++x) {
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

    void messageOfTheToolShowsAndHidesAView() {
        for (const auto &[tool, type] :
             {std::pair(spotlight, "SportLightSetWindow"), std::pair(magnifier, "MagnifierSetWindow"),
              std::pair(laser, "LightpenSetWindow")}) {
            m_view->push(ViewMessage::Key4P, tool);
            QQuickItem *item = m_view->items(QString(type)).first();
            for (const bool shown : {false, true}) {
                QVERIFY(QMetaObject::invokeMethod(item, "setvalue", Q_ARG(QVariant, int(ViewMessage::Key4P)),
                                                  Q_ARG(QVariant, int(tool)), Q_ARG(QVariant, shown)));
                QCOMPARE(item->isVisible(), shown);
            }
        }
    }

private:
    /// A click, once the slider stands at a value, reports another.
    void reportsAfterAPush(ViewMessage message, int pushed, const QPoint &click, int reported) {
        m_view->push(message, pushed);
        m_view->messages.clear();
        m_view->click(click);
        QCOMPARE(m_view->messages, Messages({{message, reported}}));
    }
    QQuickItem *sliderAt(const QPoint &corner) { return m_view->item("ValueSet", corner); }
    /// The round piece in the middle of the preview, of this type.
    QQuickItem *shape(const QString &type) {
        for (QQuickItem *item : m_view->items(type)) {
            const QPointF middle = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
            if ((middle - middleOfPreview).manhattanLength() <= 1 && item->width() == item->height())
                return item;
        }
        return nullptr;
    }
};

VEXA_WIDGET_TEST_MAIN(ToolSettingsTest)
#include "ToolSettingsTest.moc"
