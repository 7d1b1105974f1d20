// SPDX-License-Identifier: MIT
//
// The held tools where a point is no whole number of pixels; run at several scales.
#include "overlays/HeldToolKinds.h"
#include "overlays/WholeScale.h"
#include "platform/Screens.h"
#include "settings/ZrToolXmlClass.h"
#include "support/TestMain.h"

#include <QPointer>
#include <QScreen>

#include <cmath>

using namespace vexa::test;

namespace {

const QRgb black = qRgb(0, 0, 0);

/// The screen as it is: as many pixels as it has.
QSize screenPixels() {
    return shownOnScreen().size();
}

/// As the program gives it to a tool.
QPixmap backgroundOf(const QPixmap &picture) {
    return vexa::atWholeScale(picture, vexa::platform::coveringPoints(*QGuiApplication::primaryScreen()));
}

/// Wall and its look on the screen.
QPixmap sharpWall() {
    return wall(screenPixels(), screenRatio());
}

/// A picture in which the colour tells the place, and hardly changes from one pixel to the next.
QImage places(const QSize &pixels) {
    QImage image(pixels, QImage::Format_RGB32);
    for (int y = 0; y < pixels.height(); ++y)
        for (int x = 0; x < pixels.width(); ++x)
            image.setPixel(x, y, qRgb(x * 255 / pixels.width(), y * 255 / pixels.height(), 128));
    return image;
}

const QVector<QPoint> walk{{200, 130}, {201, 131}, {203, 130}, {30, 40}, {333, 7}};

} // namespace

class FractionalScaleTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        ZrToolXmlClass::LaserPenColor = 510;
        ZrToolXmlClass::MagnifierColor = 510;
        setToolSizes(60);
        ZrToolXmlClass::SportLightTran = 256; // no veil
        QVERIFY2(screenRatio() != std::floor(screenRatio()), "not at a fractional scale");
    }

    void aPictureAtAWholeScaleIsLeftAsItIs() {
        for (const int scale : {1, 2, 3}) {
            const QPixmap picture = wall(QSize(50, 40) * scale, scale);
            QCOMPARE(vexa::atWholeScale(picture, {50, 40}).cacheKey(), picture.cacheKey());
        }
        QVERIFY(vexa::atWholeScale(QPixmap(), {50, 40}).isNull());
    }

    void anEnlargedPictureShowsTheSamePixels() {
        for (const double scale : {1.0625, 1.25, 1.5, 1.75, 2.3}) {
            const int whole = int(std::ceil(scale));
            const QSize points(131, 77);
            const QSize pixels((QSizeF(points) * scale).toSize());
            const QPixmap enlarged = vexa::atWholeScale(wall(pixels, scale), points);
            QCOMPARE(enlarged.size(), points * whole);
            QCOMPARE(enlarged.devicePixelRatio(), double(whole));
            const QImage from = plainImage(wall(pixels, scale));
            const QImage to = plainImage(enlarged);
            const auto inEnlarged = [&](int at) { return int((at + 0.5) * whole / scale); };
            QVERIFY(isAll(from.copy(0, 0, pixels.width() - 1, pixels.height() - 1), [&](const QPoint &pixel) {
                return std::optional(to.pixel(inEnlarged(pixel.x()), inEnlarged(pixel.y())));
            }));
        }
    }

    void whereNoToolIsTheScreenIsAsItWas_data() { allHeldTools(); }
    void whereNoToolIsTheScreenIsAsItWas() {
        QFETCH(HeldToolKind, kind);
        QPixmap background = backgroundOf(sharpWall());
        const QImage before = plainImage(sharpWall());
        const bool hasVeil = kind.code == spotlight.code;
        const double touched = hasVeil ? 0 : (60 + 4) * screenRatio();
        const int rim = hasVeil ? 2 : 0; // the veil's outline
        const QRect inner = before.rect().adjusted(rim, rim, -rim, -rim);
        const QPointer<QWidget> tool(kind.open(&background));
        for (const QPoint &at : walk) {
            kind.move(tool, at);
            const auto expected = [&](const QPoint &pixel) -> std::optional<QRgb> {
                if (distance(pixel, QPointF(at) * screenRatio()) < touched || !inner.contains(pixel))
                    return std::nullopt;
                return before.pixel(pixel);
            };
            QTRY_VERIFY_WITH_TIMEOUT(isAll(shownOnScreen(), expected), patience);
        }
        tool->close();
    }

    void theSpotlightLightsItsDiscAtThePointer() {
        ZrToolXmlClass::SportLightTran = 255;
        QPixmap background = backgroundOf(sharpWall());
        const QImage before = plainImage(sharpWall());
        const QPointer<QWidget> tool(spotlight.open(&background));
        for (const QPoint &at : walk) {
            spotlight.move(tool, at);
            const auto expected = [&](const QPoint &pixel) -> std::optional<QRgb> {
                const double outside = distance(pixel, QPointF(at) * screenRatio()) - 60 * screenRatio();
                if (std::abs(outside) < 2 || pixel == before.rect().bottomRight()) // the outline is bevelled
                    return std::nullopt;
                return outside < 0 ? before.pixel(pixel) : black;
            };
            QTRY_VERIFY_WITH_TIMEOUT(isAll(shownOnScreen(), expected, 2), patience);
        }
        tool->close();
    }

    void theLensShowsWhatIsUnderThePointer() {
        QPixmap picture = QPixmap::fromImage(places(screenPixels()));
        picture.setDevicePixelRatio(screenRatio());
        QPixmap background = backgroundOf(picture);
        const QImage before = plainImage(picture);
        const QPointer<QWidget> tool(magnifier.open(&background));
        for (const QPoint &at : {QPoint(200, 130), QPoint(301, 141), QPoint(110, 93)}) {
            magnifier.move(tool, at);
            const QPointF pixel = QPointF(at) * screenRatio();
            const auto isEnlarged = [&] {
                const QImage shown = shownOnScreen();
                for (const QPointF &way : {QPointF(0, 0), QPointF(50, 0), QPointF(-50, 0), QPointF(0, 50),
                                           QPointF(0, -50), QPointF(38, -38)}) {
                    const QPointF place = pixel + way * screenRatio();
                    const QPointF source = pixel + way * screenRatio() / 1.25;
                    if (!alike(shown.pixel(place.toPoint()), before.pixel(source.toPoint()), 1))
                        return false;
                }
                return alike(shown.pixel((pixel + QPointF(61, 0) * screenRatio()).toPoint()), qRgb(255, 0, 0),
                             90);
            };
            QTRY_VERIFY_WITH_TIMEOUT(isEnlarged(), patience);
        }
        tool->close();
    }
};

VEXA_WIDGET_TEST_MAIN(FractionalScaleTest)
#include "FractionalScaleTest.moc"
