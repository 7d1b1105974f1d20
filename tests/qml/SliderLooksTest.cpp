// SPDX-License-Identifier: MIT
#include "qml/PanelView.h"
#include "support/TestMain.h"

#include <QQuickWindow>
#include <QSGRendererInterface>

#include <cmath>
#include <tuple>

namespace {

constexpr int spotlight = 0;
constexpr int laser = 2;
const QPoint view(30 + 20, 87 + 208);
const QPoint firstSlider = view + QPoint(16, 176);
const QPoint secondSlider = view + QPoint(16, 228);
constexpr int sliderWidth = 175;
constexpr int handle = 12;
constexpr int middleOfTrack = 3;

} // namespace

/// The looks of the sliders: their tracks, their handles, and how both answer the pointer.
class SliderLooksTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_view = std::make_unique<PanelView>();
        m_view->click({296 + 12, 196 + 12});
    }
    void cleanup() { m_view.reset(); }

    void sharedSlidersHaveTheirDefaults_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("most");
        QTest::addColumn<int>("first");
        QTest::newRow("color") << QStringLiteral("ColorSet") << 1275 << 0;
        QTest::newRow("size") << QStringLiteral("SizeSet") << 30 << 5;
        QTest::newRow("level") << QStringLiteral("LightLevelSet") << 30 << 5;
    }
    void sharedSlidersHaveTheirDefaults() {
        QFETCH(QString, file);
        QFETCH(int, most);
        QFETCH(int, first);
        PanelView alone(QStringLiteral("qrc:/%1.qml").arg(file));
        QQuickItem *root = alone.root();
        QVERIFY(root != nullptr);
        QCOMPARE(QSizeF(root->implicitWidth() + root->width(), root->height()), QSizeF(640, 80));
        QCOMPARE(root->property("color").value<QColor>(), QColor(0x44, 0x44, 0x44));
        QCOMPARE(root->property("minsize").toInt(), 5);
        QCOMPARE(root->property("maxsize").toInt(), most);
        QCOMPARE(root->property("curValue").toInt(), first);
        QCOMPARE(root->property("tickFrequency").toInt(), 1);
        auto *slider = root->property("slider").value<QQuickItem *>();
        QCOMPARE(slider->property("value").toInt(), 5);
        QCOMPARE(slider->property("stepSize").toReal(), 1.0);
        auto *knob = slider->property("handle").value<QQuickItem *>();
        QCOMPARE(knob->size(), QSizeF(12, 12));
        QCOMPARE(knob->property("radius").toReal(), 6.0);
        QCOMPARE(knob->property("color").value<QColor>(), QColor(Qt::white));
        if (file == QStringLiteral("ColorSet")) {
            QCOMPARE(root->property("curColor").value<QColor>(), QColor(0x00, 0xff, 0x9b));
            QCOMPARE(slider->height(), 4.0);
        } else {
            QCOMPARE(slider->height(), 80.0);
        }
        QSignalSpy reports(root, SIGNAL(qmlSignal()));
        root->setProperty("curValue", 20);
        QCOMPARE(reports.size(), 1);
        QCOMPARE(slider->property("value").toInt(), 20);
        // A click beside the slider reports too.
        QTest::mouseClick(&alone.widget(), Qt::LeftButton, {}, {300, 2});
        QCOMPARE(reports.size(), 2);
        QCOMPARE(root->property("curValue").toInt(), 20);
    }

    void sizeTrackGlowsUnderThePointer() {
        m_view->push(15, laser);
        m_view->push(7, 25);
        m_view->moveTo({500, 300});
        const QPoint besideTheTrack = secondSlider + QPoint(60, -1);
        QTRY_COMPARE((m_view->jiggle({500, 300}), shadows().size()), 0);
        const QColor still = m_view->pixel(besideTheTrack);
        m_view->moveTo(at(secondSlider, 0.2));
        QTRY_COMPARE((m_view->jiggle(at(secondSlider, 0.2)), shadows().size()), 1);
        QTRY_VERIFY(m_view->pixel(besideTheTrack).red() > still.red() + 10);
        const QQuickItem *glow = shadows().first();
        QCOMPARE(glow->property("color").value<QColor>(), QColor(0xff, 0xcc, 0x0d));
        QCOMPARE(glow->property("samples").toInt(), 8);
    }

    void sizeTrackIsFilledUpToTheHandle() {
        m_view->moveTo({500, 300});
        for (const auto &[tool, id, middle] : {std::tuple(laser, 7, 15), std::tuple(spotlight, 3, 150)}) {
            m_view->push(15, tool);
            m_view->push(id, middle);
            const QImage picture = m_view->widget().grabFramebuffer();
            const auto at = [&](int x, int y) { return picture.pixelColor(secondSlider + QPoint(x, y)); };
            // The track is four points high, in the middle of six.
            for (const int x : {20, 50, 75}) {
                QCOMPARE(at(x, 1), QColor(0xff, 0xcc, 0x0d));
                QCOMPARE(at(x, 4), QColor(0xff, 0xcc, 0x0d));
                QCOMPARE(at(x, 5), QColor(0x44, 0x44, 0x44));
            }
            for (const int x : {100, 130, 160})
                QVERIFY(at(x, 3).red() - at(x, 3).blue() < 20);
        }
    }

    void levelHandlesHaveAShadow() {
        m_view->moveTo({500, 300});
        m_view->push(15, spotlight);
        QTRY_COMPARE((m_view->jiggle({500, 300}), shadows().size()), 2);
        for (const QQuickItem *edge : shadows()) {
            QCOMPARE(edge->property("color").value<QColor>(), QColor(0x70, 0x70, 0x70));
            QCOMPARE(edge->property("samples").toInt(), 10);
            const auto *knob = edge->property("source").value<QQuickItem *>();
            QVERIFY(knob != nullptr);
            QCOMPARE(knob->size(), QSizeF(handle, handle));
            QCOMPARE(qml::corner(edge), qml::corner(knob));
        }
        m_view->push(3, 150);
        const QPoint above = secondSlider + QPoint(sliderWidth / 2, middleOfTrack - handle / 2 - 1);
        const QColor plain = m_view->pixel(above - QPoint(30, 0));
        QVERIFY(m_view->pixel(above).lightness() > plain.lightness());
    }

    void colorTrackIsARainbow() {
        m_view->push(15, laser);
        m_view->push(6, 1275);
        m_view->moveTo({500, 300});
        const QImage handleRight = m_view->widget().grabFramebuffer();
        m_view->push(6, 0);
        const QImage handleLeft = m_view->widget().grabFramebuffer();
        const QList<std::pair<double, QColor>> stops{
            {0.0, "#FFFFFF"},  {0.16, "#FF0000"}, {0.33, "#FFFF00"}, {0.5, "#00FFFF"},
            {0.66, "#0000FF"}, {0.83, "#FF00FF"}, {1.0, "#000000"},
        };
        for (const auto &[share, color] : stops) {
            const int x = std::min(static_cast<int>(share * sliderWidth), sliderWidth - 1);
            const QColor seen =
                (share < 0.5 ? handleRight : handleLeft).pixelColor(firstSlider + QPoint(x, middleOfTrack));
            // The next pixel may be a tenth of the way to the next stop.
            for (const int distance :
                 {seen.red() - color.red(), seen.green() - color.green(), seen.blue() - color.blue()})
                QVERIFY2(std::abs(distance) <= 26, qPrintable(QString("%1: %2").arg(share).arg(seen.name())));
        }
    }

    void handleAnswersThePointer() {
        m_view->push(15, laser);
        for (const auto &[slider, id, middle] :
             {std::tuple(firstSlider, 6, 638), std::tuple(secondSlider, 7, 15)}) {
            m_view->push(id, middle);
            m_view->moveTo({500, 300});
            const QPoint knob = at(slider, 0.5);
            const QPoint above = knob - QPoint(0, handle / 2 + 1);
            QTRY_COMPARE((m_view->jiggle({500, 300}), m_view->pixel(knob)), QColor(Qt::white));
            const int still = m_view->pixel(above).lightness();
            QTRY_VERIFY((m_view->jiggle(knob), m_view->pixel(above).lightness() > still));
            const int hovered = m_view->pixel(above).lightness();
            m_view->press(knob);
            QVERIFY(m_view->pixel(above).lightness() > hovered);
            QVERIFY(m_view->pixel(knob) != QColor(Qt::white));
            m_view->release(knob);
        }
    }

private:
    /// The place of a slider where it takes this share of its range.
    static QPoint at(const QPoint &slider, double share) {
        return slider + QPoint(static_cast<int>(std::lround(handle / 2.0 + share * (sliderWidth - handle))),
                               middleOfTrack);
    }

    /// The shadows that can be seen.
    QList<QQuickItem *> shadows() {
        const bool software = m_view->widget().quickWindow()->rendererInterface()->graphicsApi() ==
                              QSGRendererInterface::Software;
        return m_view->items(software ? QStringLiteral("PlainShadow") : QStringLiteral("DropShadow"));
    }

    std::unique_ptr<PanelView> m_view;
};

VEXA_WIDGET_TEST_MAIN(SliderLooksTest)
#include "SliderLooksTest.moc"
