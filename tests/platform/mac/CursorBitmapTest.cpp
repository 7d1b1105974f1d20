// SPDX-License-Identifier: MIT
#include "platform/mac/CursorBitmap.h"

#include <QTest>

#include <vector>

using vexa::platform::BitmapLayout;
using vexa::platform::readBitmap;

namespace {

using Bytes = std::vector<unsigned char>;

BitmapLayout layoutOf(long samples, long bitsPerPixel, unsigned long format = 0) {
    BitmapLayout layout;
    layout.pixelsWide = 1;
    layout.pixelsHigh = 1;
    layout.samplesPerPixel = samples;
    layout.bitsPerSample = 8;
    layout.bitsPerPixel = bitsPerPixel;
    layout.bytesPerRow = bitsPerPixel / 8;
    layout.format = format;
    return layout;
}

constexpr unsigned long alphaFirst = 1;
constexpr unsigned long floatingPoint = 4;
constexpr unsigned long littleEndian = 512;

} // namespace

Q_DECLARE_METATYPE(Bytes)
Q_DECLARE_METATYPE(BitmapLayout)

class CursorBitmapTest : public QObject {
    Q_OBJECT

private slots:
    void readsEveryOrderOfSamples_data() {
        QTest::addColumn<Bytes>("bytes");
        QTest::addColumn<long>("samples");
        QTest::addColumn<unsigned long>("format");
        QTest::addColumn<quint32>("expected");
        QTest::newRow("red green blue alpha") << Bytes{0x11, 0x22, 0x33, 0x44} << 4L << 0UL << 0x44112233u;
        QTest::newRow("alpha red green blue")
            << Bytes{0x44, 0x11, 0x22, 0x33} << 4L << alphaFirst << 0x44112233u;
        QTest::newRow("blue green red alpha")
            << Bytes{0x33, 0x22, 0x11, 0x44} << 4L << (alphaFirst | littleEndian) << 0x44112233u;
        QTest::newRow("alpha blue green red")
            << Bytes{0x44, 0x33, 0x22, 0x11} << 4L << littleEndian << 0x44112233u;
        QTest::newRow("red green blue") << Bytes{0x11, 0x22, 0x33} << 3L << 0UL << 0xFF112233u;
        QTest::newRow("red green blue padded") << Bytes{0x11, 0x22, 0x33, 0x99} << 3L << 0UL << 0xFF112233u;
        QTest::newRow("grey") << Bytes{0x55} << 1L << 0UL << 0xFF555555u;
        QTest::newRow("grey alpha") << Bytes{0x55, 0x66} << 2L << 0UL << 0x66555555u;
        QTest::newRow("alpha grey") << Bytes{0x66, 0x55} << 2L << alphaFirst << 0x66555555u;
    }

    void readsEveryOrderOfSamples() {
        QFETCH(Bytes, bytes);
        QFETCH(long, samples);
        QFETCH(unsigned long, format);
        QFETCH(quint32, expected);
        const auto layout = layoutOf(samples, static_cast<long>(bytes.size()) * 8, format);
        const QImage image = readBitmap(bytes.data(), layout, {1, 1});
        QCOMPARE(image.size(), QSize(1, 1));
        QCOMPARE(image.pixel(0, 0), expected);
    }

    // Nothing is blended or multiplied on the way: which pixels are painted depends on the exact values.
    void keepsValuesWhateverTheAlpha() {
        const Bytes bytes{0, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0, 0xFF, 0, 0, 0, 1};
        BitmapLayout layout = layoutOf(4, 32);
        layout.pixelsWide = 4;
        layout.bytesPerRow = 16;
        const QImage image = readBitmap(bytes.data(), layout, {4, 1});
        QCOMPARE(image.pixel(0, 0), 0u);
        QCOMPARE(image.pixel(1, 0), 0x00FFFFFFu);
        QCOMPARE(image.pixel(2, 0), 0xFF000000u);
        QCOMPARE(image.pixel(3, 0), 0x01000000u);
    }

    void followsRowsThatAreLongerThanTheirPixels() {
        const Bytes bytes{1,    2,    3,    0xFF, 0xEE, 0xEE, 0xEE, 4,    5,    6,   0xFF,
                          0xEE, 0xEE, 0xEE, 7,    8,    9,    0xFF, 0xEE, 0xEE, 0xEE};
        BitmapLayout layout = layoutOf(4, 32);
        layout.pixelsHigh = 3;
        layout.bytesPerRow = 7;
        const QImage image = readBitmap(bytes.data(), layout, {1, 3});
        QCOMPARE(image.pixel(0, 0), 0xFF010203u);
        QCOMPARE(image.pixel(0, 1), 0xFF040506u);
        QCOMPARE(image.pixel(0, 2), 0xFF070809u);
    }

    void samplesABitmapOfAnotherScale() {
        Bytes bytes;
        for (unsigned char grey = 0; grey < 16; ++grey)
            bytes.push_back(grey);
        BitmapLayout layout = layoutOf(1, 8);
        layout.pixelsWide = layout.pixelsHigh = layout.bytesPerRow = 4;
        const QImage halved = readBitmap(bytes.data(), layout, {2, 2});
        QCOMPARE(halved.pixel(0, 0), 0xFF000000u);
        QCOMPARE(halved.pixel(1, 0), 0xFF020202u);
        QCOMPARE(halved.pixel(0, 1), 0xFF080808u);
        QCOMPARE(halved.pixel(1, 1), 0xFF0A0A0Au);
        const QImage odd = readBitmap(bytes.data(), layout, {3, 5});
        QCOMPARE(odd.pixel(2, 4), 0xFF0E0E0Eu);
    }

    void isNullForWhatItCannotRead_data() {
        QTest::addColumn<BitmapLayout>("layout");
        QTest::addColumn<QSize>("size");
        const QSize one(1, 1);
        const auto row = [&](const char *name, long BitmapLayout::*member, long value) {
            BitmapLayout layout = layoutOf(4, 32);
            layout.*member = value;
            QTest::newRow(name) << layout << one;
        };
        row("sixteen bits a sample", &BitmapLayout::bitsPerSample, 16);
        row("no bits at all", &BitmapLayout::bitsPerPixel, 0);
        row("twelve bits a pixel", &BitmapLayout::bitsPerPixel, 12);
        row("fewer bytes than samples", &BitmapLayout::bitsPerPixel, 16);
        row("more bytes than four", &BitmapLayout::bitsPerPixel, 64);
        row("no samples", &BitmapLayout::samplesPerPixel, 0);
        row("five samples", &BitmapLayout::samplesPerPixel, 5);
        row("no width", &BitmapLayout::pixelsWide, 0);
        row("no height", &BitmapLayout::pixelsHigh, 0);
        row("rows too short", &BitmapLayout::bytesPerRow, 3);
        BitmapLayout planar = layoutOf(4, 32);
        planar.planar = true;
        QTest::newRow("planes") << planar << one;
        QTest::newRow("floating point") << layoutOf(4, 32, floatingPoint) << one;
        QTest::newRow("empty size") << layoutOf(4, 32) << QSize(0, 1);
    }

    void isNullForWhatItCannotRead() {
        QFETCH(BitmapLayout, layout);
        QFETCH(QSize, size);
        const Bytes bytes(64, 0xFF);
        QVERIFY(readBitmap(bytes.data(), layout, size).isNull());
    }

    void isNullWithoutBytes() { QVERIFY(readBitmap(nullptr, layoutOf(4, 32), {1, 1}).isNull()); }
};

QTEST_GUILESS_MAIN(CursorBitmapTest)
#include "CursorBitmapTest.moc"
