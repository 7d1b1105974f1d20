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

/// The distance of a pixel's middle from a place given in points, in pixels.
double distance(int x, int y, const QPoint &at) {
    return std::hypot(x + 0.5 - at.x() * screenRatio(), y + 0.5 - at.y() * screenRatio());
}

QImage pictureOf(const QPixmap &pixmap) {
    QImage image = pixmap.toImage();
    image.setDevicePixelRatio(1);
    return image;
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
        const QImage wallOnly = pictureOf(screenWall());
        const QImage screen = screenWith(laser, screenWall(), at);
        QCOMPARE(screen.pixel(at * screenRatio()), qRgb(255, 22, 0));
        const double radius = 13 * screenRatio();
        for (int y = 0; y < screen.height(); ++y) {
            for (int x = 0; x < screen.width(); ++x) {
                const double far = distance(x, y, at);
                const bool soft = far >= radius - 1 && far <= radius + 1;
                const QRgb expected = far < radius ? qRgb(255, 22, 0) : wallOnly.pixel(x, y);
                if (!soft && screen.pixel(x, y) != expected)
                    QFAIL(qPrintable(QStringLiteral("%1, %2").arg(x).arg(y)));
            }
        }
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
        const QImage wallOnly = pictureOf(screenWall());
        const QImage screen = screenWith(spotlight, screenWall(), at);
        const double radius = 100 * screenRatio();
        const QRect insideOutline = screen.rect().adjusted(1, 1, -1, -1);
        for (int y = 0; y < screen.height(); ++y) {
            for (int x = 0; x < screen.width(); ++x) {
                const double far = distance(x, y, at);
                const QRgb plain = wallOnly.pixel(x, y);
                if (far < radius - 1.5) {
                    if (screen.pixel(x, y) != plain)
                        QFAIL(qPrintable(QStringLiteral("%1, %2").arg(x).arg(y)));
                } else if (far > radius + 1.5 && insideOutline.contains(x, y)) {
                    const QRgb veiled =
                        qRgb(qRed(plain) * (255 - alpha) / 255, qGreen(plain) * (255 - alpha) / 255,
                             qBlue(plain) * (255 - alpha) / 255);
                    if (!alike(screen.pixel(x, y), veiled, 1))
                        QFAIL(qPrintable(QStringLiteral("%1, %2").arg(x).arg(y)));
                }
            }
        }
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
        QVERIFY(screen.copy(inside) == pictureOf(screenWall()).convertToFormat(screen.format()).copy(inside));
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
        const QImage screen = screenWith(magnifier, blocks(), at);
        int looked = 0;
        for (int y = 0; y < screen.height(); ++y) {
            for (int x = 0; x < screen.width(); ++x) {
                if (distance(x, y, at) > 100 * screenRatio() - 3)
                    continue;
                const double fromX = at.x() * screenRatio() + (x + 0.5 - at.x() * screenRatio()) / 1.25;
                const double fromY = at.y() * screenRatio() + (y + 0.5 - at.y() * screenRatio()) / 1.25;
                if (!isInBlock(fromX, fromY))
                    continue;
                ++looked;
                const QRgb expected = blockColour(int(fromX) / block, int(fromY) / block);
                if (!alike(screen.pixel(x, y), expected, 2))
                    QFAIL(qPrintable(QStringLiteral("%1, %2").arg(x).arg(y)));
            }
        }
        QVERIFY(looked > 1000);
    }

    void nearTheTopLeftTheMagnifiersPictureStartsAtTheCorner() {
        ZrToolXmlClass::MagnifierSize = 100;
        Magnifie magnifier;
        // The piece begins 30 points outside and is cut there; its disc begins at -40, and the lens stands in
        // the corner: what is shown at s is what stood at s / 1.25, in a disc around the pointer.
        const QImage screen = screenWith(magnifier, blocks(), {50, 50});
        int looked = 0;
        for (int y = 0; y < 150 * screenRatio(); ++y) {
            for (int x = 0; x < 150 * screenRatio(); ++x) {
                const double fromX = (x + 0.5) / 1.25;
                const double fromY = (y + 0.5) / 1.25;
                if (distance(x, y, {50, 50}) > 100 * screenRatio() - 3 || !isInBlock(fromX, fromY))
                    continue;
                ++looked;
                const QRgb expected = blockColour(int(fromX) / block, int(fromY) / block);
                if (!alike(screen.pixel(x, y), expected, 2))
                    QFAIL(qPrintable(QStringLiteral("%1, %2").arg(x).arg(y)));
            }
        }
        QVERIFY(looked > 1000);
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
        const QImage wallOnly = pictureOf(screenWall());
        const QImage screen = screenWith(magnifier, screenWall(), at);
        for (int y = 0; y < screen.height(); ++y)
            for (int x = 0; x < screen.width(); ++x)
                if (distance(x, y, at) > 103.5 * screenRatio() && screen.pixel(x, y) != wallOnly.pixel(x, y))
                    QFAIL(qPrintable(QStringLiteral("%1, %2").arg(x).arg(y)));
    }
};

VEXA_WIDGET_TEST_MAIN(ToolPixelsTest)
#include "ToolPixelsTest.moc"
