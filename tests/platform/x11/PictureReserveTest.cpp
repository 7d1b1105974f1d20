// SPDX-License-Identifier: MIT
#include "platform/x11/PictureReserve.h"

#include "support/ResidentMemory.h"

#include <QTest>

#include <algorithm>
#include <thread>

using namespace vexa::test;
using vexa::platform::PictureReserve;

namespace {

const QSize screen(1920, 1080);
constexpr qint64 screenBytes = 1920 * 1080 * 4;
constexpr qint64 little = 1 << 20;

bool isClear(const QImage &picture) {
    return std::all_of(picture.constBits(), picture.constBits() + picture.sizeInBytes(),
                       [](uchar byte) { return byte == 0; });
}

QImage written(const QSize &size) {
    QImage picture = PictureReserve::picture(size);
    picture.fill(Qt::red);
    return picture;
}

} // namespace

/// The cases stand in order: what is kept outlives each.
class PictureReserveTest : public QObject {
    Q_OBJECT

private slots:
    void theFirstPictureIsPreparedBitByBit() {
        const qint64 before = residentBytes();
        int steps = 1;
        while (PictureReserve::prepare(screen))
            ++steps;
        QCOMPARE(steps, 4); // of 2 MiB
        const qint64 prepared = residentBytes();
        QVERIFY2(prepared - before >= screenBytes, qPrintable(QString::number(prepared - before)));
        QVERIFY(!PictureReserve::prepare(screen));

        const QImage picture = written(screen);
        QCOMPARE(picture.format(), QImage::Format_RGB32);
        QCOMPARE(picture.size(), screen);
        QVERIFY(residentBytes() - prepared < little);
        QVERIFY2(!PictureReserve::prepare(screen), "there has been a picture");
    }

    void aPictureGetsTheWipedMemoryOfTheOneBefore() {
        QImage picture = written(screen);
        const uchar *const memory = picture.constBits();
        QImage copy = picture;
        picture = QImage();
        const QImage meanwhile = PictureReserve::picture(screen);
        QVERIFY2(meanwhile.constBits() != memory, "a copy still uses it");
        std::thread([last = std::move(copy)]() mutable { last = QImage(); }).join();
        picture = PictureReserve::picture(screen);
        QCOMPARE(picture.constBits(), memory);
        QVERIFY(isClear(picture));
    }

    void onePictureIsKeptOfHoweverMany() {
        const qint64 before = residentBytes();
        {
            const QVector<QImage> pictures{written(screen), written(screen), written(screen)};
            QVERIFY(residentBytes() - before > 2 * screenBytes - little);
        }
        QVERIFY(residentBytes() - before < little);
    }

    void theMemoryForAFormerScreenGoes() {
        const qint64 before = residentBytes();
        written({800, 600});
        QVERIFY(residentBytes() - before < 800 * 600 * 4 - screenBytes + little);
        written(screen);
        QVERIFY(qAbs(residentBytes() - before) < little);
    }

    void ofAScreenLargerThan4KNothingIsKept() {
        const qint64 before = residentBytes();
        written({3840, 2161});
        QVERIFY(residentBytes() - before < little - screenBytes);
        QVERIFY(isClear(PictureReserve::picture({3840, 2161})));
    }

    void aPictureWithoutAreaIsNull() {
        QVERIFY(PictureReserve::picture({}).isNull());
        QVERIFY(PictureReserve::picture({0, 5}).isNull());
        QVERIFY(!PictureReserve::prepare({}));
    }
};

QTEST_GUILESS_MAIN(PictureReserveTest)
#include "PictureReserveTest.moc"
