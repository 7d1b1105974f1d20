// SPDX-License-Identifier: MIT
#include "fakes/mac/AppKit.h"
#include "platform/ScreenCapture.h"

#include <QTest>

#include <limits>
#include <optional>

using vexa::platform::currentCursorPicture;
using vexa::platform::CursorPicture;

class CursorPictureTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_kit.emplace();
        fakes::Cursor &cursor = m_kit->cursor;
        cursor.size = {3, 2};
        cursor.pixelsWide = 3;
        cursor.pixelsHigh = 2;
        cursor.bytesPerRow = 16; // a row is longer than its pixels
        for (unsigned char byte = 0; byte < 32; ++byte)
            cursor.bytes.push_back(byte);
    }

    // Whatever happened, every pool that was opened is drained, and nothing was returned outside of one.
    void cleanup() {
        QCOMPARE(m_kit->poolsMade(), 1);
        QCOMPARE(m_kit->poolsOpen(), 0);
        QCOMPARE(m_kit->strays(), 0);
        m_kit.reset();
    }

    void readsTheCursorsOwnPixels() {
        const CursorPicture picture = currentCursorPicture();
        QCOMPARE(picture.size, QSize(3, 2));
        QCOMPARE(picture.image.size(), QSize(3, 2));
        QCOMPARE(picture.image.pixel(0, 0), 0x03000102u);
        QCOMPARE(picture.image.pixel(2, 0), 0x0B08090Au);
        QCOMPARE(picture.image.pixel(1, 1), 0x17141516u);
    }

    // The bitmap and its bytes have gone with the pool by the time the caller looks.
    void ownsWhatItReturns() {
        const CursorPicture picture = currentCursorPicture();
        m_kit->cursor.bytes.assign(32, 0xFF);
        QCOMPARE(picture.image.pixel(0, 0), 0x03000102u);
    }

    void truncatesTheSizeToWholePoints() {
        m_kit->cursor.size = {2.9, 1.9};
        const CursorPicture picture = currentCursorPicture();
        QCOMPARE(picture.size, QSize(2, 1));
        QCOMPARE(picture.image.size(), QSize(2, 1));
    }

    void toleratesTheFailureOfEveryStep_data() {
        QTest::addColumn<int>("step");
        QTest::newRow("no cursor") << 0;
        QTest::newRow("no image") << 1;
        QTest::newRow("no data") << 2;
        QTest::newRow("data that does not decode") << 3;
        QTest::newRow("no bytes") << 4;
    }

    void toleratesTheFailureOfEveryStep() {
        QFETCH(int, step);
        constexpr bool fakes::Cursor::*steps[] = {&fakes::Cursor::exists, &fakes::Cursor::hasImage,
                                                  &fakes::Cursor::hasData, &fakes::Cursor::decodes,
                                                  &fakes::Cursor::hasBytes};
        m_kit->cursor.*steps[step] = false;
        const CursorPicture picture = currentCursorPicture();
        QVERIFY(picture.image.isNull());
        QVERIFY(picture.size.isEmpty());
    }

    void toleratesSizesThatAreNone_data() {
        QTest::addColumn<double>("width");
        QTest::addColumn<double>("height");
        QTest::newRow("empty") << 0.0 << 0.0;
        QTest::newRow("less than a point") << 0.9 << 10.0;
        QTest::newRow("negative") << 10.0 << -3.0;
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 10.0;
        QTest::newRow("beyond any cursor") << 10.0 << 4096.0;
        QTest::newRow("beyond any screen") << 10.0 << 1e300;
    }

    void toleratesSizesThatAreNone() {
        QFETCH(double, width);
        QFETCH(double, height);
        m_kit->cursor.size = {width, height};
        QVERIFY(currentCursorPicture().image.isNull());
    }

    void toleratesALayoutItCannotRead() {
        m_kit->cursor.bitsPerSample = 16;
        QVERIFY(currentCursorPicture().image.isNull());
    }

private:
    std::optional<fakes::AppKit> m_kit;
};

QTEST_GUILESS_MAIN(CursorPictureTest)
#include "CursorPictureTest.moc"
