// SPDX-License-Identifier: MIT
#include "overlays/CursorPainting.h"

#include "support/Table.h"

#include <QRandomGenerator>
#include <QTest>

using vexa::paintCursor;
using vexa::test::Table;

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

    /// A colour, a picture in it, the size that it is said to have, the pointer, and what is seen of it.
    using Pictures = Table<QRgb, QSize, QSize, QPoint, QRect>;

    static constexpr QRect area{100, 100, 50, 60};

private slots:
    void whatIsSeenOfAPictureOfOneColour_data() {
        Pictures::begin();
        const auto row = [](const char *name, QRgb word, QSize size, QPoint pointer, QRect seen) {
            QTest::newRow(name) << word << size << size << pointer << seen;
        };
        // What an arrow points at is 4 to the right and 3 down in its picture.
        row("moved by the arrow's tip", cursorColour, {1, 1}, {140, 150}, {36, 47, 1, 1});
        row("opaque black", 0xFF000000, {1, 1}, {120, 120}, {16, 17, 1, 1});
        row("a soft colour, which becomes opaque", 0x40102030, {1, 1}, {120, 120}, {16, 17, 1, 1});
        row("nothing", 0, {8, 8}, {120, 120}, {});
        row("hardly black", 0x01000000, {8, 8}, {120, 120}, {});
        row("half black", 0x80000000, {8, 8}, {120, 120}, {});
        row("nearly opaque black", 0xFE000000, {8, 8}, {120, 120}, {});
        row("over all of it and more: the first column and row stay free", cursorColour, {100, 100}, {99, 98},
            {1, 1, 49, 59});
        row("left of it", cursorColour, {16, 16}, {100 + 4 - 16, 120}, {});
        row("right of it", cursorColour, {16, 16}, {100 + 50 + 4, 120}, {});
        row("above it", cursorColour, {16, 16}, {120, 100 + 3 - 16}, {});
        row("below it", cursorColour, {16, 16}, {120, 100 + 60 + 3}, {});
        row("far away", cursorColour, {16, 16}, {-100000, 100000}, {});
        const QPoint middle(120, 120);
        QTest::newRow("larger than said")
            << cursorColour << QSize(32, 32) << QSize(2, 1) << middle << QRect(16, 17, 2, 1);
        QTest::newRow("smaller than said")
            << cursorColour << QSize(1, 1) << QSize(40, 40) << middle << QRect(16, 17, 1, 1);
        QTest::newRow("no picture") << cursorColour << QSize() << QSize(40, 40) << middle << QRect();
    }
    void whatIsSeenOfAPictureOfOneColour() {
        const auto [word, picture, size, pointer, seen] = Pictures::row();
        QImage screen = plain(area.size(), screenColour);
        paintCursor(screen, area, plain(picture, word), size, pointer);
        for (int y = 0; y < area.height(); ++y)
            for (int x = 0; x < area.width(); ++x)
                QCOMPARE(screen.pixel(x, y), seen.contains(x, y) ? word | 0xFF000000 : screenColour);
    }

    void withoutAScreenNothingIsPainted() {
        QImage none;
        paintCursor(none, area, plain({8, 8}, cursorColour), {8, 8}, {120, 120});
        QVERIFY(none.isNull());
    }

    void randomPicturesComeOutAsByThePlainRule() {
        QRandomGenerator random(20240501);
        const auto between = [&random](int low, int high) { return random.bounded(low, high + 1); };
        int painted = 0;
        for (int round = 0; round < 500; ++round) {
            const QRect place(between(-50, 50), between(-50, 50), between(20, 60), between(20, 60));
            QImage cursor = plain({between(5, 40), between(5, 40)}, 0);
            const QRgb words[] = {0, 0xFF000000, 0x70000000, cursorColour, 0x33224466, 0x00010000};
            for (int y = 0; y < cursor.height(); ++y)
                for (int x = 0; x < cursor.width(); ++x)
                    reinterpret_cast<QRgb *>(cursor.scanLine(y))[x] = words[random.bounded(6)];
            const QPoint pointer(place.x() + between(-30, 50), place.y() + between(-30, 50));

            QImage fast = plain(place.size(), screenColour);
            QImage slow = fast.copy();
            paintCursor(fast, place, cursor, cursor.size(), pointer);
            paintSlowly(slow, place, cursor, cursor.size(), pointer);
            QCOMPARE(fast, slow);
            painted += slow != plain(place.size(), screenColour) ? 1 : 0;
        }
        QVERIFY2(painted > 100, "too few of the random pictures met the screen");
    }
};

QTEST_APPLESS_MAIN(CursorPaintingTest)
#include "CursorPaintingTest.moc"
