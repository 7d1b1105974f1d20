// SPDX-License-Identifier: MIT
#include "overlays/ToolLayer.h"

#include <QPainter>
#include <QRandomGenerator>
#include <QTest>

using vexa::ToolLayer;

namespace {

constexpr QSize screen(200, 120);
constexpr QRect wholeScreen(QPoint(), screen);
const QColor ink(200, 30, 60);
const auto drawNothing = [](QPainter &) {};

/// A filled square of that extent around the position.
QRect squareOf(const ToolLayer::Look &look) {
    return {look.position - QPoint(look.extent, look.extent), QSize(2 * look.extent, 2 * look.extent)};
}

void place(ToolLayer &layer, const ToolLayer::Look &look) {
    layer.setTool(look, squareOf(look), [&look](QPainter &painter) {
        painter.fillRect(squareOf(look), QColor::fromRgba(look.ink));
    });
}

void setVeil(ToolLayer &layer, std::optional<int> alpha) {
    layer.setVeil(alpha,
                  [alpha](QPainter &painter) { painter.fillRect(wholeScreen, QColor(0, 0, 0, *alpha)); });
}

ToolLayer::Look at(int x, int y, int extent = 10) {
    return {{x, y}, extent, ink.rgba()};
}

/// A window that paints what it is asked to and nothing else.
class Window {
public:
    explicit Window(qreal ratio) : m_picture(screen * ratio, QImage::Format_ARGB32_Premultiplied) {
        m_picture.setDevicePixelRatio(ratio);
    }
    void paint(ToolLayer &layer, const QRegion &region) {
        QPainter painter(&m_picture);
        for (const QRect &rect : region)
            painter.fillRect(rect, Qt::white);
        layer.paint(painter, region);
        layer.setPainted(region);
    }
    const QImage &picture() const { return m_picture; }

private:
    QImage m_picture;
};

} // namespace

class ToolLayerTest : public QObject {
    Q_OBJECT

private slots:
    void nothingIsStaleAtFirst() {
        ToolLayer layer(screen, 1);
        setVeil(layer, std::nullopt);
        QVERIFY(layer.takeStale().isEmpty());
        QVERIFY(layer.due().isEmpty());
        layer.setStale();
        QCOMPARE(layer.takeStale(), QRegion(wholeScreen));
    }

    void aMovedToolMakesItsOldAndItsNewPlaceStale() {
        ToolLayer layer(screen, 1);
        QVERIFY(!layer.shows(at(50, 50)));
        place(layer, at(50, 50));
        QVERIFY(layer.shows(at(50, 50)));
        QVERIFY(!layer.shows(at(51, 50)));
        QCOMPARE(layer.takeStale(), QRegion(39, 39, 22, 22));
        place(layer, at(150, 60));
        QCOMPARE(layer.takeStale(), QRegion(39, 39, 22, 22) + QRect(139, 49, 22, 22));
        QVERIFY(layer.takeStale().isEmpty());
    }

    void aToolOutsideTheScreenTouchesNothing() {
        ToolLayer layer(screen, 1);
        place(layer, at(5000, -70));
        QVERIFY(layer.takeStale().isEmpty());
        place(layer, at(0, 0));
        QCOMPARE(layer.takeStale(), QRegion(0, 0, 11, 11));
        layer.setTool(at(0, 0, 0), QRectF(), drawNothing);
        QCOMPARE(layer.takeStale(), QRegion(0, 0, 11, 11));
    }

    void aVeilMakesEverythingStaleOnceForEachAlpha() {
        ToolLayer layer(screen, 1);
        for (const std::optional<int> alpha : {std::optional(100), std::optional(20), std::optional<int>()}) {
            setVeil(layer, alpha);
            QCOMPARE(layer.takeStale(), QRegion(wholeScreen));
            setVeil(layer, alpha);
            QVERIFY(layer.takeStale().isEmpty());
        }
    }

    void whatWasTakenIsDueUntilItIsPainted() {
        ToolLayer layer(screen, 1);
        place(layer, at(50, 50));
        layer.takeStale();
        layer.setPainted(QRect(0, 0, 50, 120));
        QCOMPARE(layer.due(), QRegion(50, 39, 11, 22));
        layer.setPainted(wholeScreen);
        QVERIFY(layer.due().isEmpty());
    }

    void aWindowThatAppearsOwesNothing() {
        ToolLayer layer(screen, 1);
        setVeil(layer, 100);
        place(layer, at(50, 50));
        layer.windowAppears();
        QVERIFY(layer.takeStale().isEmpty());
    }

    void aForgottenLookIsNotShown() {
        ToolLayer layer(screen, 1);
        place(layer, at(50, 50));
        layer.forgetLook();
        QVERIFY(!layer.shows(at(50, 50)));
    }

    void paintingWhatIsDueIsAsGoodAsPaintingAll_data() {
        QTest::addColumn<qreal>("ratio");
        QTest::newRow("1") << 1.0;
        QTest::newRow("2") << 2.0;
    }
    void paintingWhatIsDueIsAsGoodAsPaintingAll() {
        QFETCH(qreal, ratio);
        QRandomGenerator random(7);
        ToolLayer layer(screen, ratio);
        Window window(ratio);
        window.paint(layer, wholeScreen);
        for (int step = 0; step < 300; ++step) {
            if (random.bounded(10) == 0)
                setVeil(layer, random.bounded(4) == 0 ? std::nullopt : std::optional(random.bounded(256)));
            place(layer, {{random.bounded(-30, 230), random.bounded(-30, 150)},
                          random.bounded(40),
                          random.generate()});
            if (random.bounded(3) == 0)
                continue; // two changes before the window is asked
            layer.takeStale();
            if (random.bounded(3) == 0)
                continue; // two requests before it paints
            window.paint(layer, layer.due());
            Window whole(ratio);
            whole.paint(layer, wholeScreen);
            QCOMPARE(window.picture(), whole.picture());
        }
    }
};

QTEST_MAIN(ToolLayerTest)
#include "ToolLayerTest.moc"
