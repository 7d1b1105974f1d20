// SPDX-License-Identifier: MIT
#include "overlays/CursorPainting.h"

#include <QRandomGenerator>
#include <QtTest>

using vexa::paintCursor;

namespace {

constexpr QRgb screenColour = 0xFF334455;
constexpr QRgb cursorColour = 0xFFEE8811;

QImage plain(const QSize &size, QRgb word) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            reinterpret_cast<QRgb *>(image.scanLine(y))[x] = word;
    return image;
}

QRgb wordOf(const QImage &image, int x, int y) {
    return reinterpret_cast<const QRgb *>(image.constScanLine(y))[x];
}

/// The rule, one pixel after the other.
void paintSlowly(QImage &screen, const QRect &area, const QImage &cursor, const QSize &size,
                 const QPoint &pointer) {
    for (int i = 0; i < size.width(); ++i) {
        for (int j = 0; j < size.height(); ++j) {
            const int X = pointer.x() + i;
            const int Y = pointer.y() + j;
            if (!(area.x() + 4 < X && X < area.x() + area.width() + 4))
                continue;
            if (!(area.y() + 3 < Y && Y < area.y() + area.height() + 3))
                continue;
            const QRgb p = wordOf(cursor, i, j);
            if (p == 0)
                continue;
            if (qRed(p) == 0 && qGreen(p) == 0 && qBlue(p) == 0 && p != 0xFF000000)
                continue;
            screen.setPixel(X - area.x() - 4, Y - area.y() - 3, p);
        }
    }
}

} // namespace

class CursorPaintingTest : public QObject {
    Q_OBJECT

private slots:
    void thePictureMovesByTheArrowsTip() {
        QImage screen = plain({100, 80}, screenColour);
        paintCursor(screen, {200, 300, 100, 80}, plain({1, 1}, cursorColour), {1, 1}, {240, 350});
        QImage expected = plain({100, 80}, screenColour);
        expected.setPixel(240 - 200 - 4, 350 - 300 - 3, cursorColour);
        QCOMPARE(screen, expected);
    }

    void opaqueBlackIsPainted() {
        QImage screen = plain({50, 50}, screenColour);
        paintCursor(screen, {0, 0, 50, 50}, plain({1, 1}, 0xFF000000), {1, 1}, {20, 20});
        QCOMPARE(screen.pixel(16, 17), QRgb(0xFF000000));
    }

    void otherBlackAndNothingAreNot_data() {
        QTest::addColumn<QRgb>("word");
        QTest::newRow("nothing") << QRgb(0);
        QTest::newRow("hardly black") << QRgb(0x01000000);
        QTest::newRow("half black") << QRgb(0x80000000);
        QTest::newRow("nearly opaque black") << QRgb(0xFE000000);
    }
    void otherBlackAndNothingAreNot() {
        QFETCH(QRgb, word);
        QImage screen = plain({50, 50}, screenColour);
        paintCursor(screen, {0, 0, 50, 50}, plain({8, 8}, word), {8, 8}, {20, 20});
        QCOMPARE(screen, plain({50, 50}, screenColour));
    }

    void softColoursArePaintedOpaque() {
        QImage screen = plain({50, 50}, screenColour);
        paintCursor(screen, {0, 0, 50, 50}, plain({1, 1}, 0x40102030), {1, 1}, {20, 20});
        QCOMPARE(screen.pixel(16, 17), QRgb(0xFF102030));
    }

    void firstColumnAndRowStayFree() {
        QImage screen = plain({50, 40}, screenColour);
        const QRect area(10, 20, 50, 40);
        // Everything of the area lies under this cursor, and more on each side.
        paintCursor(screen, area, plain({100, 100}, cursorColour), {100, 100},
                    area.topLeft() + QPoint(4, 3) - QPoint(5, 5));
        for (int y = 0; y < 40; ++y)
            for (int x = 0; x < 50; ++x)
                QCOMPARE(screen.pixel(x, y), x == 0 || y == 0 ? screenColour : cursorColour);
    }

    void aPointerOutsideChangesNothing_data() {
        QTest::addColumn<QPoint>("pointer");
        QTest::newRow("left") << QPoint(100 + 4 - 16, 120);
        QTest::newRow("right") << QPoint(100 + 50 + 4, 120);
        QTest::newRow("above") << QPoint(120, 100 + 3 - 16);
        QTest::newRow("below") << QPoint(120, 100 + 40 + 3);
        QTest::newRow("far") << QPoint(-100000, 100000);
    }
    void aPointerOutsideChangesNothing() {
        QFETCH(QPoint, pointer);
        QImage screen = plain({50, 40}, screenColour);
        paintCursor(screen, {100, 100, 50, 40}, plain({16, 16}, cursorColour), {16, 16}, pointer);
        QCOMPARE(screen, plain({50, 40}, screenColour));
    }

    void onlyTheSaidSizeCounts() {
        QImage screen = plain({50, 50}, screenColour);
        paintCursor(screen, {0, 0, 50, 50}, plain({32, 32}, cursorColour), {2, 1}, {20, 20});
        QImage expected = plain({50, 50}, screenColour);
        expected.setPixel(16, 17, cursorColour);
        expected.setPixel(17, 17, cursorColour);
        QCOMPARE(screen, expected);
    }

    void aPictureSmallerThanItsSizeOrNoneIsHarmless() {
        QImage screen = plain({50, 50}, screenColour);
        paintCursor(screen, {0, 0, 50, 50}, plain({1, 1}, cursorColour), {40, 40}, {20, 20});
        QImage expected = plain({50, 50}, screenColour);
        expected.setPixel(16, 17, cursorColour);
        QCOMPARE(screen, expected);

        paintCursor(screen, {0, 0, 50, 50}, QImage(), {40, 40}, {20, 20});
        QCOMPARE(screen, expected);

        QImage none;
        paintCursor(none, {0, 0, 50, 50}, plain({8, 8}, cursorColour), {8, 8}, {20, 20});
        QVERIFY(none.isNull());
    }

    void randomPicturesComeOutAsByThePlainRule() {
        QRandomGenerator random(20240501);
        const auto between = [&random](int low, int high) { return random.bounded(low, high + 1); };
        int painted = 0;
        for (int round = 0; round < 500; ++round) {
            const QRect area(between(-50, 50), between(-50, 50), between(20, 60), between(20, 60));
            QImage cursor = plain({between(5, 40), between(5, 40)}, 0);
            const QRgb words[] = {0, 0xFF000000, 0x70000000, cursorColour, 0x33224466, 0x00010000};
            for (int y = 0; y < cursor.height(); ++y)
                for (int x = 0; x < cursor.width(); ++x)
                    reinterpret_cast<QRgb *>(cursor.scanLine(y))[x] = words[random.bounded(6)];
            const QPoint pointer(area.x() + between(-30, 50), area.y() + between(-30, 50));

            QImage fast = plain(area.size(), screenColour);
            QImage slow = fast.copy();
            paintCursor(fast, area, cursor, cursor.size(), pointer);
            paintSlowly(slow, area, cursor, cursor.size(), pointer);
            QCOMPARE(fast, slow);
            painted += slow != plain(area.size(), screenColour) ? 1 : 0;
        }
        QVERIFY2(painted > 100, "too few of the random pictures met the screen");
    }
};

QTEST_APPLESS_MAIN(CursorPaintingTest)
#include "CursorPaintingTest.moc"
