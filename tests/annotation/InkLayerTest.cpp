// SPDX-License-Identifier: MIT
#include "annotation/InkLayer.h"

#include "annotation/WholePathInk.h"
#include "support/RecordedStrokes.h"
#include "support/Table.h"

#include <QGuiApplication>
#include <QTest>

using namespace vexa::test;

using vexa::InkLayer;

namespace {

const QSize layerSize(640, 400);

QPen pen(int width, const QColor &colour = Qt::red) {
    return QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

struct Difference {
    int ink = 0;
    int differing = 0;
    int largest = 0; // of opacity

    /// At least so much ink, and no more than so many of its thousand pixels differ.
    bool isWithin(int perMille, int least = 400) const {
        qInfo("%d of %d pixels, by at most %d", differing, ink, largest);
        return ink > least && differing * 1000 <= ink * perMille;
    }
};

Difference compare(const QImage &actual, const QImage &expected) {
    Difference result;
    for (int y = 0; y < expected.height(); ++y) {
        const auto *a = reinterpret_cast<const QRgb *>(actual.constScanLine(y));
        const auto *e = reinterpret_cast<const QRgb *>(expected.constScanLine(y));
        for (int x = 0; x < expected.width(); ++x) {
            result.ink += e[x] != 0;
            result.differing += a[x] != e[x];
            result.largest = std::max(result.largest, std::abs(qAlpha(a[x]) - qAlpha(e[x])));
        }
    }
    return result;
}

/// Both ways to draw side by side, fed the same.
struct Pair {
    explicit Pair(const QPen &pen, qreal ratio = 1) : ours(layerSize, ratio), plain(layerSize, ratio) {
        setPen(pen);
    }

    void setPen(const QPen &pen) {
        ours.setPen(pen);
        plain.setPen(pen);
    }
    void press(const QPoint &point) {
        ours.begin(point);
        plain.press(point);
    }
    void move(const QPoint &point) {
        ours.extend(point);
        plain.move(point);
    }
    void release() {
        ours.end();
        plain.release();
    }
    void erase(const QPoint &point, bool smoothEdge) {
        ours.erase(point, 50, smoothEdge);
        plain.erase(point, smoothEdge);
    }
    /// Samples every three points from here to there on a level.
    void moveAlong(int from, int to, int y) {
        for (int x = from; x < to; x += 3)
            move({x, y});
    }
    void draw(const std::vector<QPoint> &stroke) {
        press(stroke.front());
        for (std::size_t i = 1; i < stroke.size(); ++i)
            move(stroke[i]);
        release();
    }
    Difference difference() const { return compare(ours.image(), plain.image()); }

    InkLayer ours;
    WholePathInk plain;
};

} // namespace

class InkLayerTest : public QObject {
    Q_OBJECT

    using Strokes = Table<QString, int, int>; // a kind, the pen's width, how many of 1,000 pixels may differ

private slots:
    void strokeIsThatOfTheWholePath_data() {
        Strokes::begin();
        // Where a stroke trembles or crosses itself, what old ink adds to a pixel is summed with a rounding
        // error.
        const std::pair<const char *, int> kinds[] = {
            {"straight", 0}, {"curved", 0}, {"slow", 0},   {"fast", 0}, {"shaky", 1},
            {"tremor", 1},   {"zigzag", 1}, {"spiral", 1}, {"wave", 1}, {"scribble", 3}};
        for (const auto &[kind, perMille] : kinds)
            for (const int width : {2, 5, 8, 10})
                QTest::addRow("%s %d", kind, width) << kind << width << perMille;
    }
    void strokeIsThatOfTheWholePath() {
        const auto [kind, width, perMille] = Strokes::row();
        Pair inks(pen(width, "#009EF8"));
        inks.draw(recordedStroke(kind, 400, layerSize));
        const Difference difference = inks.difference();
        QVERIFY(difference.isWithin(perMille));
        // Neither a gap nor a spot: a pixel that differs does so by less than its own edge does.
        QVERIFY(difference.largest <= 32);
    }

    void strokeIsThatOfTheWholePathAtEveryMoment() {
        Pair inks(pen(8));
        const auto stroke = recordedStroke("curved", 330, layerSize);
        inks.press(stroke[0]);
        QCOMPARE(inks.difference().differing, 0);
        for (std::size_t i = 1; i < stroke.size(); ++i) {
            inks.move(stroke[i]);
            if (i < 20 || i % 50 == 0)
                QCOMPARE(inks.difference().differing, 0);
        }
    }

    void strokeOnADisplayOfTwoPixelsAPointIsThatOfTheWholePath() {
        Pair inks(pen(5), 2);
        inks.draw(recordedStroke("curved", 400, layerSize));
        QCOMPARE(inks.ours.image().size(), layerSize * 2);
        QVERIFY(inks.difference().isWithin(0, 2000));
    }

    void strokeThatLeavesTheLayerAndComesBackIsOneStroke() {
        Pair inks(pen(5));
        const auto stroke = recordedStroke("leaving", 500, layerSize);
        QVERIFY(std::any_of(stroke.begin(), stroke.end(), [](const QPoint &p) { return p.x() < -20; }));
        QVERIFY(std::any_of(stroke.begin(), stroke.end(), [](const QPoint &p) { return p.y() > 420; }));
        inks.draw(stroke);
        QVERIFY(inks.difference().isWithin(1));
    }

    void strokesDoNotDisturbEachOther() {
        Pair inks(pen(10));
        inks.draw(recordedStroke("curved", 200, layerSize));
        inks.setPen(pen(5, "#82FF20"));
        inks.draw(recordedStroke("straight", 400, layerSize));
        inks.setPen(pen(2, Qt::black));
        inks.draw(recordedStroke("slow", 300, layerSize));
        QCOMPARE(inks.difference().differing, 0);
    }

    void sampleAtTheSamePlaceDrawsTheStrokeAgain() {
        Pair inks(pen(2));
        inks.press({100, 100});
        inks.move({140, 107});
        inks.move({180, 130});
        const QImage once = inks.ours.image();
        for (int i = 0; i < 40; ++i)
            inks.move({180, 130});
        QCOMPARE(inks.difference().differing, 0);
        QVERIFY(inks.ours.image() != once);
    }

    void secondPressWithinAStrokeGoesOnWithIt() {
        Pair inks(pen(5));
        inks.press({50, 50});
        inks.moveAlong(50, 120, 60);
        inks.press({300, 200});
        for (int x = 300; x < 400; x += 3)
            inks.move({x, 200 + x % 7});
        QCOMPARE(inks.difference().differing, 0);
    }

    void penChangedWithinAStrokeColoursAllOfIt() {
        Pair inks(pen(5));
        inks.press({50, 50});
        inks.moveAlong(50, 200, 60);
        inks.setPen(pen(5, Qt::blue));
        inks.moveAlong(200, 500, 60);
        QCOMPARE(inks.difference().differing, 0);
        QCOMPARE(inks.ours.image().pixelColor(100, 60), QColor(Qt::blue));
    }

    void inkErasedWithinAStrokeComesBackWithTheNextSample() {
        Pair inks(pen(5));
        inks.press({50, 50});
        inks.moveAlong(50, 200, 60);
        inks.erase({100, 60}, true);
        QCOMPARE(inks.difference().differing, 0);
        QCOMPARE(inks.ours.image().pixel(100, 60), 0u);
        inks.moveAlong(200, 300, 60);
        QCOMPARE(inks.difference().differing, 0);
        QCOMPARE(inks.ours.image().pixelColor(100, 60), QColor(Qt::red));
    }

    void layerIsBlankUntilThePenDraws() {
        InkLayer layer(layerSize, 1);
        layer.setPen(pen(8));
        layer.erase({50, 50}, 20, true);
        QVERIFY(layer.isBlank());
        QVERIFY(layer.stretchedTo(layerSize / 2, 1).isBlank());

        InkLayer pressed = layer;
        pressed.begin({100, 100});
        QVERIFY(!pressed.isBlank());
        QVERIFY(!pressed.stretchedTo(layerSize / 2, 1).isBlank());
        layer.extend({100, 100});
        QVERIFY(!layer.isBlank());
    }

    void pressLeavesADotOfThePensWidth() {
        for (const auto &[width, diameter] :
             {std::pair(2, 2), {5, 4}, {8, 8}, {10, 10}}) { // halved in whole pixels
            InkLayer ink(layerSize, 1);
            ink.setPen(pen(width));
            ink.begin({100, 100});
            ink.end();
            QRect touched;
            for (int y = 80; y < 120; ++y)
                for (int x = 80; x < 120; ++x)
                    if (ink.image().pixel(x, y) != 0)
                        touched |= QRect(x, y, 1, 1);
            QCOMPARE(touched, QRect(100 - diameter / 2, 100 - diameter / 2, diameter, diameter));
            QVERIFY(qAlpha(ink.image().pixel(100, 100)) > 150);
        }
    }

    void eraserLeavesAHoleOfItsDiameterAndNothingElse() {
        InkLayer ink(layerSize, 1);
        ink.setPen(pen(10));
        ink.begin({0, 200});
        for (int x = 0; x <= 640; x += 4)
            ink.extend({x, 200});
        ink.end();
        const QImage before = ink.image();
        ink.erase({300, 200}, 50, true);
        QVERIFY(before.pixel(276, 200) != 0 && before.pixel(323, 200) != 0);
        for (int x = 0; x < 640; ++x) {
            const double distance = std::abs(x + 0.5 - 300);
            if (distance < 24)
                QCOMPARE(ink.image().pixel(x, 200), 0u);
            if (distance > 26)
                QCOMPARE(ink.image().pixel(x, 200), before.pixel(x, 200));
        }
    }

    void changedRegionHoldsEveryChangedPixelAndLittleElse() {
        InkLayer ink(QSize(1920, 1080), 1);
        ink.setPen(pen(10));
        const auto stroke = recordedStroke("curved", 600, {1920, 1080});
        ink.begin(stroke[0]);
        for (std::size_t i = 1; i < stroke.size(); ++i) {
            const bool looked = i % 60 == 0;
            const QImage before = looked ? ink.image().copy() : QImage();
            const QRegion changed = QRegion(ink.extend(stroke[i])) + ink.takeSettling();
            if (!looked)
                continue;
            qint64 area = 0;
            for (const QRect &rect : changed)
                area += qint64(rect.width()) * rect.height();
            QVERIFY2(area < 1920 * 1080 / 8, qPrintable(QString::number(area)));
            for (int y = 0; y < before.height(); ++y) {
                const auto *old = reinterpret_cast<const QRgb *>(before.constScanLine(y));
                const auto *now = reinterpret_cast<const QRgb *>(ink.image().constScanLine(y));
                for (int x = 0; x < before.width(); ++x)
                    if (old[x] != now[x])
                        QVERIFY(changed.contains(QPoint(x, y)));
            }
        }
    }

    void penWithoutWidthOrColourDrawsAThinBlackLine() {
        InkLayer ink(layerSize, 1);
        ink.setPen(QPen(QColor(), 0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        ink.begin({10, 100});
        for (int x = 10; x < 300; x += 3)
            ink.extend({x, 100});
        ink.end();
        const QRgb middle = ink.image().pixel(150, 100);
        QVERIFY(qAlpha(middle) > 0);
        QCOMPARE(middle & 0xffffff, 0u);
        QCOMPARE(ink.image().pixel(150, 104), 0u);
    }
};

QTEST_MAIN(InkLayerTest)
#include "InkLayerTest.moc"
