// SPDX-License-Identifier: MIT
#include "qml/PanelTest.h"
#include "qml/Sliders.h"
#include "support/Table.h"
#include "support/TestMain.h"

#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QSignalSpy>

using namespace places;
using namespace sliders;

/// The looks of the sliders: their tracks, their handles, and how both answer the pointer.
class SliderLooksTest : public PanelTest {
    Q_OBJECT

    using Defaults = vexa::test::Table<QString, int, int, int>;

private slots:
    void init() {
        PanelTest::init();
        m_view->click(key4Button);
    }

    void sharedSlidersHaveTheirDefaults_data() {
        Defaults::begin();
        QTest::newRow("color") << "ColorSet" << 1275 << 0 << 4;
        QTest::newRow("size") << "SizeSet" << 30 << 5 << 80;
        QTest::newRow("level") << "LightLevelSet" << 30 << 5 << 80;
    }
    void sharedSlidersHaveTheirDefaults() {
        const auto [file, most, first, height] = Defaults::row();
        PanelView alone(QString("qrc:/%1.qml").arg(file));
        QQuickItem *root = alone.root();
        QVERIFY(root);
        QCOMPARE(root->implicitWidth() + root->width(), 640.0);
        QVERIFY(qml::is(
            root,
            QString("height: 80; color: #444444; minsize: 5; maxsize: %1; curValue: %2; tickFrequency: 1")
                .arg(most)
                .arg(first)));
        auto *slider = root->property("slider").value<QQuickItem *>();
        QVERIFY(qml::is(slider, QString("value: 5; stepSize: 1; height: %1").arg(height)));
        QVERIFY(qml::is(slider->property("handle").value<QQuickItem *>(),
                        "width: 12; height: 12; radius: 6; color: white"));
        if (file == "ColorSet")
            QVERIFY(qml::is(root, "curColor: #00ff9b"));
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
        m_view->push(ViewMessage::Key4P, laser);
        m_view->push(ViewMessage::LaserPenSize, 25);
        m_view->moveTo({500, 300});
        const QPoint besideTheTrack = secondSlider + QPoint(60, -1);
        QTRY_COMPARE((m_view->jiggle({500, 300}), shadows().size()), 0);
        const QColor still = m_view->pixel(besideTheTrack);
        m_view->moveTo(at(secondSlider, 0.2));
        QTRY_COMPARE((m_view->jiggle(at(secondSlider, 0.2)), shadows().size()), 1);
        QTRY_VERIFY(m_view->pixel(besideTheTrack).red() > still.red() + 10);
        QVERIFY(qml::is(shadows().first(), "color: #ffcc0d; samples: 8"));
    }

    void sizeTrackIsFilledUpToTheHandle() {
        m_view->moveTo({500, 300});
        for (const auto &[tool, message, middle] :
             {std::tuple(laser, ViewMessage::LaserPenSize, 15),
              std::tuple(spotlight, ViewMessage::SportLightSize, 150)}) {
            m_view->push(ViewMessage::Key4P, tool);
            m_view->push(message, middle);
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
        m_view->push(ViewMessage::Key4P, spotlight);
        QTRY_COMPARE((m_view->jiggle({500, 300}), shadows().size()), 2);
        for (QQuickItem *shadow : shadows()) {
            QVERIFY(qml::is(shadow, "color: #707070; samples: 10"));
            auto *knob = shadow->property("source").value<QQuickItem *>();
            QVERIFY(qml::is(knob, QString("width: %1; height: %2").arg(handle).arg(handle)));
            QCOMPARE(qml::corner(shadow), qml::corner(knob));
        }
        m_view->push(ViewMessage::SportLightSize, 150);
        const QPoint above = secondSlider + QPoint(width / 2, middleOfTrack - handle / 2 - 1);
        const QColor plain = m_view->pixel(above - QPoint(30, 0));
        QVERIFY(m_view->pixel(above).lightness() > plain.lightness());
    }

    void colorTrackIsARainbow() {
        m_view->push(ViewMessage::Key4P, laser);
        m_view->push(ViewMessage::LaserPenColor, 1275);
        m_view->moveTo({500, 300});
        const QImage handleRight = m_view->widget().grabFramebuffer();
        m_view->push(ViewMessage::LaserPenColor, 0);
        const QImage handleLeft = m_view->widget().grabFramebuffer();
        const QList<std::pair<double, QColor>> stops{
            {0.0, "#FFFFFF"},  {0.16, "#FF0000"}, {0.33, "#FFFF00"}, {0.5, "#00FFFF"},
            {0.66, "#0000FF"}, {0.83, "#FF00FF"}, {1.0, "#000000"},
        };
        for (const auto &[share, color] : stops) {
            const int x = std::min(static_cast<int>(share * width), width - 1);
            const QColor seen =
                (share < 0.5 ? handleRight : handleLeft).pixelColor(firstSlider + QPoint(x, middleOfTrack));
            // The next pixel may be a tenth of the way to the next stop.
            for (const int distance :
                 {seen.red() - color.red(), seen.green() - color.green(), seen.blue() - color.blue()})
                QVERIFY2(std::abs(distance) <= 26, qPrintable(QString("%1: %2").arg(share).arg(seen.name())));
        }
    }

    void handleAnswersThePointer() {
        m_view->push(ViewMessage::Key4P, laser);
        for (const auto &[slider, message, middle] :
             {std::tuple(firstSlider, ViewMessage::LaserPenColor, 638),
              std::tuple(secondSlider, ViewMessage::LaserPenSize, 15)}) {
            m_view->push(message, middle);
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
    /// The shadows that can be seen.
    QList<QQuickItem *> shadows() {
        const bool software = m_view->widget().quickWindow()->rendererInterface()->graphicsApi() ==
                              QSGRendererInterface::Software;
        return m_view->items(software ? "PlainShadow" : "DropShadow");
    }
};

VEXA_WIDGET_TEST_MAIN(SliderLooksTest)
#include "SliderLooksTest.moc"
