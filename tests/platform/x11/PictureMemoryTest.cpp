// SPDX-License-Identifier: MIT
#include "platform/PictureMemory.h"

#include "support/ResidentMemory.h"
#include "support/Sanitized.h"

#include <QFile>
#include <QTest>

#include <thread>
#include <vector>

using namespace vexa::test;
using vexa::platform::clearPicture;

namespace {

/// How much memory this process has mapped, in KiB.
long mappedMemory() {
    QFile status(QStringLiteral("/proc/self/statm"));
    return status.open(QIODevice::ReadOnly) ? status.readAll().split(' ').at(0).toLong() * 4 : 0;
}

} // namespace

class PictureMemoryTest : public QObject {
    Q_OBJECT

private slots:
    void aPictureIsClearAndWritable_data() {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QImage::Format>("format");
        QTest::newRow("pixel") << QSize(1, 1) << QImage::Format_RGB32;
        QTest::newRow("screen") << QSize(1920, 1080) << QImage::Format_ARGB32_Premultiplied;
        QTest::newRow("odd bytes") << QSize(37, 11) << QImage::Format_Alpha8;
        QTest::newRow("whole large pages") << QSize(1024, 1024) << QImage::Format_RGB32;
    }

    void aPictureIsClearAndWritable() {
        QFETCH(QSize, size);
        QFETCH(QImage::Format, format);
        QImage picture = clearPicture(size, format);
        QImage expected(size, format);
        expected.fill(0);
        QCOMPARE(picture.bytesPerLine(), expected.bytesPerLine());
        QVERIFY(picture == expected);

        const uchar *memory = picture.constBits();
        picture.fill(0xFFFFFFFF);
        QVERIFY2(picture.constBits() == memory, "writing has copied it");
        expected.fill(0xFFFFFFFF);
        QVERIFY(picture == expected);
    }

    void aPictureWithoutAreaIsNull() {
        QVERIFY(clearPicture({}, QImage::Format_RGB32).isNull());
        QVERIFY(clearPicture({0, 5}, QImage::Format_RGB32).isNull());
        QVERIFY(clearPicture({5, -1}, QImage::Format_RGB32).isNull());
    }

    void memoryGoesBackWithTheLastCopyOnAnyThread() {
        std::thread([] {}).join(); // with what the first thread needs itself
        const long before = mappedMemory();
        QImage picture = clearPicture({4000, 4000}, QImage::Format_RGB32);
        constexpr long size = 4000 * 4000 * 4 / 1024;
        QVERIFY(mappedMemory() - before >= size);
        QImage copy = picture;
        picture = QImage();
        QVERIFY(mappedMemory() - before >= size);
        std::thread([last = std::move(copy)]() mutable { last = QImage(); }).join();
        QVERIFY2(mappedMemory() - before < size / 10, qPrintable(QString::number(mappedMemory() - before)));
    }

    void whatTheAllocatorKeepsGoesBackWhenAsked() {
        constexpr std::size_t count = 300, size = 100000; // below what is mapped by itself
        vexa::platform::returnFreedMemory();              // what the other tests have left
        std::vector<std::vector<char>> blocks(count);
        const qint64 before = residentBytes();
        for (auto &block : blocks)
            block.assign(size, 'x');
        const std::vector<char> behindThem(size, 'x');
        QVERIFY(residentBytes() - before > qint64(count * size) * 9 / 10);
        blocks.clear();
        vexa::platform::returnFreedMemory();
        QVERIFY(addressSanitized || residentBytes() - before < (2 << 20));
        QCOMPARE(behindThem.back(), 'x');
    }
};

QTEST_GUILESS_MAIN(PictureMemoryTest)
#include "PictureMemoryTest.moc"
