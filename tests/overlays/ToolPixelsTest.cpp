// SPDX-License-Identifier: MIT
//
// What the held tools put on the screen, worked out from numbers alone.
#include "overlays/LightPen.h"
#include "overlays/Magnifie.h"
#include "overlays/Spolight2.h"
#include "overlays/TickCounter.h"
#include "platform/OverlayWindow.h"
#include "settings/ZrToolXmlClass.h"
#include "support/ScreenProbe.h"
#include "support/TestMain.h"

#include <cmath>
#include <optional>

using namespace vexa::test;

namespace {

constexpr int block = 16; // pixels

QRgb blockColour(int bx, int by) {
    return qRgb((bx * 37) & 0xFF, (by * 53) & 0xFF, (bx * 91 + by * 29) & 0xFF);
}

/// Blocks of one colour each: what stands where can be told after enlarging too.
QPixmap blocks() {
    QImage image(screenPoints() * screenRatio(), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, blockColour(x / block, y / block));
    QPixmap picture = QPixmap::fromImage(image);
    picture.setDevicePixelRatio(screenRatio());
    return picture;
}

/// Whether a place of the picture is well inside its block.
bool isInBlock(double x, double y) {
    const auto inside = [](double v) {
        const double part = v - block * std::floor(v / block);
        return part > 3 && part < block - 3;
    };
    return inside(x) && inside(y);
}

template<typename Tool> QImage screenWith(Tool &tool, QPixmap background, const QPoint &at) {
    const TickCounter ticks(&tool);
    QCursor::setPos(at);
    tool.setAttribute(Qt::WA_DeleteOnClose, false);
    tool.Setbackground(&background);
    tool.SetMousePress(true);
    tool.SetMouseMove(at.x(), at.y());
    vexa::platform::showOverPrimaryScreen(tool);
    if (!QTest::qWaitForWindowExposed(&tool))
        return {};
    const int from = ticks.quickTicks();
    if (!QTest::qWaitFor([&] { return ticks.quickTicks() >= from + 2 && ticks.paints() > 0; }, patience))
        return {};
    return shownOnScreen();
}

/// Whether the screen shows the blocks enlarged by a quarter within a distance of the pointer, but for what
/// is near the edge of a block. `from` tells what place of the picture, in pixels, a pixel shows.
template<typename From> bool isEnlarged(const QImage &screen, const QPoint &at, const From &from) {
    int looked = 0;
    const auto expected = [&](const QPoint &pixel) -> std::optional<QRgb> {
        const QPointF place = from(QPointF(pixel) + QPointF(0.5, 0.5));
        if (distance(pixel, at * screenRatio()) > 100 * screenRatio() - 3 || !isInBlock(place.x(), place.y()))
            return std::nullopt;
        ++looked;
        return blockColour(int(place.x()) / block, int(place.y()) / block);
    };
    return isAll(screen, expected, 2) && looked > 1000;
}

void positions() {
    QTest::addColumn<QPoint>("at");
    const int right = screenPoints().width();
    const int bottom = screenPoints().height();
    QTest::newRow("middle") << QPoint(right / 2, bottom / 2);
    QTest::newRow("left edge") << QPoint(4, bottom / 2);
    QTest::newRow("right edge") << QPoint(right - 4, bottom / 2);
    QTest::newRow("top edge") << QPoint(right / 2, 4);
    QTest::newRow("bottom edge") << QPoint(right / 2, bottom - 4);
    QTest::newRow("top left") << QPoint(4, 4);
    QTest::newRow("top right") << QPoint(right - 4, 4);
    QTest::newRow("bottom left") << QPoint(4, bottom - 4);
    QTest::newRow("bottom right") << QPoint(right - 4, bottom - 4);
    QTest::newRow("clipped at the top left") << QPoint(10, 10);
}

} // namespace

class ToolPixelsTest : public QObject {
    Q_OBJECT

private slots:
    void theLaserIsADiscOfItsSizeAndColour_data() { positions(); }
    void theLaserIsADiscOfItsSizeAndColour() {
        QFETCH(QPoint, at);
        ZrToolXmlClass::LaserPenSize = 13;
        ZrToolXmlClass::LaserPenColor = 22;
        LightPen laser;
        const QImage wallOnly = plainImage(screenWall());
        const QImage screen = screenWith(laser, screenWall(), at);
        QCOMPARE(screen.pixel(at * screenRatio()), qRgb(255, 22, 0));
        const double radius = 13 * screenRatio();
        QVERIFY(isAll(screen, [&](const QPoint &pixel) -> std::optional<QRgb> {
            const double far = distance(pixel, at * screenRatio());
            if (far >= radius - 1 && far <= radius + 1)
                return std::nullopt; // its soft edge
            return far < radius ? qRgb(255, 22, 0) : wallOnly.pixel(pixel);
        }));
    }

    void theLasersColourIsThatOfTheSlider() {
        ZrToolXmlClass::LaserPenSize = 20;
        const struct {
            int value;
            QRgb colour;
        } rows[] = {
            {0, 0xFF000000}, {510, 0xFFFF0000}, {511, 0xFF00FF01}, {1274, 0xFFFE00FF}, {1275, 0xFFFFFFFF}};
        for (const auto &row : rows) {
            ZrToolXmlClass::LaserPenColor = row.value;
            LightPen laser;
            QCOMPARE(screenWith(laser, screenWall(), {100, 100}).pixel(QPoint(100, 100) * screenRatio()),
                     row.colour);
            ZrToolXmlClass::LaserPenColor = 0; // read once, and again when told to
            laser.SetMouseMove(120, 100);
            QTRY_COMPARE_WITH_TIMEOUT(shownOnScreen().pixel(QPoint(120, 100) * screenRatio()), row.colour,
                                      patience);
            laser.setColorInit();
            QTRY_COMPARE_WITH_TIMEOUT(shownOnScreen().pixel(QPoint(120, 100) * screenRatio()),
                                      QRgb(0xFF000000), patience);
        }
    }

    void theLasersNewSizeShowsWhileItIsOpen() {
        constexpr QRgb red = 0xFFFF0000;
        ZrToolXmlClass::LaserPenColor = 510;
        ZrToolXmlClass::LaserPenSize = 10;
        const QPoint pastTheSmallDot = QPoint(100 + 18, 100) * screenRatio();
        LightPen laser;
        QVERIFY(screenWith(laser, screenWall(), {100, 100}).pixel(pastTheSmallDot) != red);
        ZrToolXmlClass::LaserPenSize = 25;
        QTRY_COMPARE_WITH_TIMEOUT(shownOnScreen().pixel(pastTheSmallDot), red, patience);
    }

    void theSpotlightDarkensAllButItsDisc_data() { positions(); }
    void theSpotlightDarkensAllButItsDisc() {
        QFETCH(QPoint, at);
        constexpr int alpha = 132;
        ZrToolXmlClass::SportLightSize = 100;
        ZrToolXmlClass::SportLightTran = alpha;
        Spolight2 spotlight;
        const QImage wallOnly = plainImage(screenWall());
        const QImage screen = screenWith(spotlight, screenWall(), at);
        const double radius = 100 * screenRatio();
        const QRect insideOutline = screen.rect().adjusted(1, 1, -1, -1);
        const auto expected = [&](const QPoint &pixel) -> std::optional<QRgb> {
            const double outside = distance(pixel, at * screenRatio()) - radius;
            const QRgb plain = wallOnly.pixel(pixel);
            if (outside < -1.5)
                return plain;
            if (outside <= 1.5 || !insideOutline.contains(pixel))
                return std::nullopt;
            return qRgb(qRed(plain) * (255 - alpha) / 255, qGreen(plain) * (255 - alpha) / 255,
                        qBlue(plain) * (255 - alpha) / 255);
        };
        QVERIFY(isAll(screen, expected, 1));
        const double inside = radius - 1.5;
        QVERIFY(isAll(screen, [&](const QPoint &pixel) {
            return distance(pixel, at * screenRatio()) < inside ? std::optional(wallOnly.pixel(pixel))
                                                                : std::nullopt;
        }));
    }

    void theVeilHasAnOutlineAtTheScreensEdge() {
        ZrToolXmlClass::SportLightSize = 50;
        ZrToolXmlClass::SportLightTran = 0;
        Spolight2 spotlight;
        QPixmap white = screenWall();
        white.fill(Qt::white);
        const QPoint middle(screenPoints().width() / 2, screenPoints().height() / 2);
        const QImage screen = screenWith(spotlight, white, middle);
        // The pen is a point wide and lies on the edge: at one pixel a point half of it covers half a pixel.
        const int outline = screenRatio() > 1 ? 0 : 127;
        for (const QPoint &edge : {QPoint(300, 0), QPoint(0, 200), QPoint(screen.width() - 1, 200),
                                   QPoint(300, screen.height() - 1)})
            QVERIFY(alike(screen.pixel(edge), qRgb(outline, outline, outline), 3));
        for (const QPoint &inner : {QPoint(300, 1), QPoint(1, 200), QPoint(screen.width() - 2, 200),
                                    QPoint(300, screen.height() - 2)})
            QCOMPARE(screen.pixel(inner), QRgb(0xFFFFFFFF));
    }

    void aVeilOf256AndMoreIsNoVeil_data() {
        QTest::addColumn<int>("alpha");
        for (const int alpha : {256, 300, 2147483647, -1})
            QTest::addRow("%d", alpha) << alpha;
    }
    void aVeilOf256AndMoreIsNoVeil() {
        QFETCH(int, alpha);
        ZrToolXmlClass::SportLightSize = 50;
        ZrToolXmlClass::SportLightTran = alpha;
        Spolight2 spotlight;
        const QRect inside(QPoint(1, 1), screenPoints() * screenRatio() - QSize(2, 2));
        const QImage screen = screenWith(spotlight, screenWall(), {200, 150});
        QVERIFY(!screen.isNull());
        QVERIFY(screen.copy(inside) ==
                plainImage(screenWall()).convertToFormat(screen.format()).copy(inside));
    }

    void theMagnifierEnlargesByAQuarter_data() {
        QTest::addColumn<QPoint>("at");
        const int right = screenPoints().width();
        const int bottom = screenPoints().height();
        QTest::newRow("middle") << QPoint(right / 2, bottom / 2);
        QTest::newRow("a radius from the left and the top") << QPoint(101, 101);
        QTest::newRow("right edge") << QPoint(right - 4, bottom / 2);
        QTest::newRow("bottom right") << QPoint(right - 4, bottom - 4);
    }
    void theMagnifierEnlargesByAQuarter() {
        QFETCH(QPoint, at);
        ZrToolXmlClass::MagnifierSize = 100;
        ZrToolXmlClass::MagnifierColor = 890;
        Magnifie magnifier;
        const QPointF pixel = QPointF(at) * screenRatio();
        QVERIFY(isEnlarged(screenWith(magnifier, blocks(), at), at,
                           [&](const QPointF &shown) { return pixel + (shown - pixel) / 1.25; }));
    }

    void nearTheTopLeftTheMagnifiersPictureStartsAtTheCorner() {
        ZrToolXmlClass::MagnifierSize = 100;
        Magnifie magnifier;
        // The piece begins 30 points outside and is cut there; its disc begins at -40, and the lens stands in
        // the corner: what is shown at s is what stood at s / 1.25, in a disc around the pointer.
        QVERIFY(isEnlarged(screenWith(magnifier, blocks(), {50, 50}), {50, 50},
                           [](const QPointF &shown) { return shown / 1.25; }));
    }

    void theMagnifiersRingIsThreePixelsWide() {
        ZrToolXmlClass::MagnifierSize = 100;
        ZrToolXmlClass::MagnifierColor = 1275;
        Magnifie magnifier;
        QPixmap black = screenWall();
        black.fill(Qt::black);
        const QPoint at(200, 150);
        const QImage screen = screenWith(magnifier, black, at);
        if (screenRatio() == 1) {
            // Three lines of one pixel, each on the border between two: the outer pixels are covered by half
            // a line, the inner ones by two halves, one over the other.
            const int covered[] = {0, 128, 191, 191, 128, 0};
            for (int i = 0; i < 6; ++i) {
                const int out = 98 + i;
                for (const QPoint &pixel : {QPoint(200 + out, 150), QPoint(199 - out, 150),
                                            QPoint(200, 150 + out), QPoint(200, 149 - out)})
                    QVERIFY2(alike(screen.pixel(pixel), qRgb(covered[i], covered[i], covered[i]), 12),
                             qPrintable(QStringLiteral("%1 pixels out").arg(out)));
            }
        } else {
            // Two pixels a line, side by side: six full ones.
            for (int out = 199; out < 205; ++out)
                QVERIFY(alike(screen.pixel(400 + out, 300), 0xFFFFFFFF, 12));
            QCOMPARE(screen.pixel(400 + 206, 300), QRgb(0xFF000000));
            QCOMPARE(screen.pixel(400 + 197, 300), QRgb(0xFF000000));
        }
    }

    void outsideItsRingTheMagnifierChangesNothing_data() { positions(); }
    void outsideItsRingTheMagnifierChangesNothing() {
        QFETCH(QPoint, at);
        ZrToolXmlClass::MagnifierSize = 100;
        Magnifie magnifier;
        const QImage wallOnly = plainImage(screenWall());
        const QImage screen = screenWith(magnifier, screenWall(), at);
        QVERIFY(isAll(screen, [&](const QPoint &pixel) {
            const bool outside = distance(pixel, at * screenRatio()) > 103.5 * screenRatio();
            return outside ? std::optional(wallOnly.pixel(pixel)) : std::nullopt;
        }));
    }
};

VEXA_WIDGET_TEST_MAIN(ToolPixelsTest)
#include "ToolPixelsTest.moc"
