// SPDX-License-Identifier: MIT
#include "platform/ScreenPlace.h"

#include <QTest>

#include <cmath>

using vexa::platform::Pixels;
using vexa::platform::ScreenPlace;

class ScreenPlaceTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() {
        QTest::addColumn<double>("scale");
        for (int sixteenths = 16; sixteenths <= 48; ++sixteenths)
            QTest::addRow("%d/16", sixteenths) << sixteenths / 16.0;
        for (const double scale : {1.1, 1.15, 1.3, 1.35, 1.6, 1.7, 1.8, 2.3})
            QTest::addRow("%.2f", scale) << scale;
    }

    void everyPointComesBackFromItsPixel() {
        QFETCH_GLOBAL(double, scale);
        const ScreenPlace screen{{1920, -100}, {1366, 768}, scale};
        for (int point = -3000; point <= 3000; ++point) {
            const Pixels place = screen.toPixels({double(point), double(-point)});
            const auto points = screen.toPoints(place);
            // The listener cuts off to whole points.
            QCOMPARE(int(points.x), point);
            QCOMPARE(int(points.y), -point);
            // And it is as near as it gets.
            QVERIFY(std::abs(place.x - 1920 - point * scale) < 1.001);
            QVERIFY(std::abs(place.y + 100 + point * scale) < 1.001);
        }
    }

    void whatIsFarAwayStaysOutside() {
        QFETCH_GLOBAL(double, scale);
        const ScreenPlace screen{{1920, -100}, {1366, 768}, scale};
        for (const double far : {1e7, -1e300, std::nan("")})
            QVERIFY(!screen.contains(screen.toPixels({far, far})));
    }

    void aWindowCoversEveryPixelAndNoPointMore() {
        QFETCH_GLOBAL(double, scale);
        for (const int pixels : {768, 1080, 1200, 1366, 1440, 1920, 2160, 2560, 3840}) {
            const int rounded = int(std::round(pixels / scale)); // as the toolkit tells it
            const int covering = vexa::platform::coveringLength(rounded, scale, pixels);
            const double middleOfLast = pixels - 0.5, closeBy = 1e-3;
            QVERIFY(covering * scale > middleOfLast + closeBy);
            QVERIFY(covering == rounded || (covering - 1) * scale < middleOfLast + closeBy);
        }
        QCOMPARE(vexa::platform::coveringLength(1745, 1.1, 1920), 1746);
        QCOMPARE(vexa::platform::coveringLength(960, 2, 1920), 960);
    }

    void aScreenEndsWhereTheNextOneBegins() {
        QFETCH_GLOBAL(double, scale);
        const ScreenPlace left{{0, 0}, {1920, 1080}, scale}, right{{1920, 0}, {1366, 768}, scale};
        QVERIFY(left.contains({1919, 1079}) && !right.contains({1919, 0}));
        QVERIFY(!left.contains({1920, 0}) && right.contains({1920, 767}));
        QVERIFY(!left.contains({5, 1080}) && !left.contains({-1, 5}) && !left.contains({5, -1}));
    }
};

QTEST_APPLESS_MAIN(ScreenPlaceTest)
#include "ScreenPlaceTest.moc"
