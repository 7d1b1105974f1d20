// SPDX-License-Identifier: MIT
#include "platform/ScreenCapture.h"

#include "platform/OverlayWindow.h"
#include "platform/x11/SharedPictures.h"
#include "support/ScreenProbe.h"
#include "support/TestMain.h"

#include <QScreen>
#include <QX11Info>

#include <xcb/shm.h>

#include <thread>

using namespace std::chrono_literals;
using namespace vexa::test;
using vexa::platform::capturePrimaryScreen;
using vexa::platform::SharedPictures;

namespace {

QRect screenPixels() {
    return {QPoint(), screenPoints() * screenRatio()};
}

QImage toolkitsPicture() {
    const QSize size = screenPoints();
    return QGuiApplication::primaryScreen()->grabWindow(0, 0, 0, size.width(), size.height()).toImage();
}

QByteArray bytesOf(const QImage &image) {
    return {reinterpret_cast<const char *>(image.constBits()), int(image.sizeInBytes())};
}

bool serverSharesMemory() {
    const auto *extension = xcb_get_extension_data(QX11Info::connection(), &xcb_shm_id);
    return extension->present && QGuiApplication::primaryScreen()->depth() == 24;
}

/// How many pieces of shared pictures' memory a process has mapped.
int mappedPictures() {
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) ? maps.readAll().count("screen-picture") : -1;
}

} // namespace

/// Runs on a plain server, on one without shared memory, at 16 bits and at double density.
class ScreenCaptureTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { delete m_wall; }

    void everyPixelIsTheToolkits();
    void theServerWritesThePictureWhereItCan();
    void aPictureStaysWhenTheScreenChanges();
    void drawingOnAPictureChangesNoOther();
    void aPartOfTheScreenIsThatPart();
    void nothingOutsideTheScreenCanBeTaken();
    void theProgramKeepsNoMemoryForLong();
    void theNextPictureUsesTheMemoryOfTheLast();
    void memoryGoesBackAfterAWhile();
    void aPictureMayGoOnAnotherThreadAndOutliveItsMaker();

private:
    void paintWall(const QBrush &brush);

    QWidget *m_wall = nullptr;
};

void ScreenCaptureTest::initTestCase() {
    m_wall = new QWidget;
    m_wall->resize(screenPoints());
    paintWall(screenWall());
    vexa::platform::showOverPrimaryScreen(*m_wall);
    QTRY_VERIFY_WITH_TIMEOUT(toolkitsPicture().pixel(200, 100) != toolkitsPicture().pixel(201, 100),
                             patience);
    // Something of which the server keeps no opaque pixels of its own.
    auto *veil = new QWidget(m_wall, Qt::Window | Qt::BypassWindowManagerHint | Qt::FramelessWindowHint);
    veil->setAttribute(Qt::WA_TranslucentBackground);
    veil->setGeometry(30, 40, 50, 60);
    veil->show();
    QVERIFY(QTest::qWaitForWindowExposed(veil, patience));
}

void ScreenCaptureTest::paintWall(const QBrush &brush) {
    QPalette palette;
    palette.setBrush(QPalette::Window, brush);
    m_wall->setPalette(palette);
    m_wall->repaint();
    QCoreApplication::processEvents();
}

void ScreenCaptureTest::everyPixelIsTheToolkits() {
    const QPixmap picture = capturePrimaryScreen();
    const QImage expected = toolkitsPicture();
    QCOMPARE(picture.devicePixelRatio(), expected.devicePixelRatio());
    QCOMPARE(picture.toImage().format(), expected.format());
    // With the fourth byte, which a comparison of images leaves out.
    QVERIFY(bytesOf(picture.toImage()) == bytesOf(expected));
}

void ScreenCaptureTest::theServerWritesThePictureWhereItCan() {
    const QImage picture = SharedPictures(1h, nullptr).take(screenPixels());
    QCOMPARE(picture.isNull(), !serverSharesMemory());
    const QPixmap whole = capturePrimaryScreen();
    QCOMPARE(mappedPictures() > 0, serverSharesMemory());
}

void ScreenCaptureTest::aPictureStaysWhenTheScreenChanges() {
    const QImage before = toolkitsPicture();
    const QPixmap picture = capturePrimaryScreen();
    paintWall(Qt::darkGreen);
    QTRY_VERIFY_WITH_TIMEOUT(toolkitsPicture() != before, patience);
    const QPixmap later = capturePrimaryScreen();
    QVERIFY(picture.toImage() == before);
    QVERIFY(later.toImage() == toolkitsPicture());
    paintWall(screenWall());
    QTRY_VERIFY_WITH_TIMEOUT(toolkitsPicture() == before, patience);
}

void ScreenCaptureTest::drawingOnAPictureChangesNoOther() {
    const QImage expected = toolkitsPicture();
    const QPixmap picture = capturePrimaryScreen();
    QPixmap copy = picture;
    copy.fill(Qt::red);
    QVERIFY(picture.toImage() == expected);
}

void ScreenCaptureTest::aPartOfTheScreenIsThatPart() {
    if (!serverSharesMemory())
        QSKIP("this server writes no pictures into shared memory");
    const QRect part(31, 17, 203, 99);
    const QImage picture = SharedPictures(1h, nullptr).take(part);
    QImage expected = toolkitsPicture();
    expected.setDevicePixelRatio(1);
    QVERIFY(picture == expected.copy(part));
}

void ScreenCaptureTest::nothingOutsideTheScreenCanBeTaken() {
    SharedPictures pictures(1h, nullptr);
    QVERIFY(pictures.take({}).isNull());
    QVERIFY(pictures.take(screenPixels().adjusted(0, 0, 1, 0)).isNull());
    QVERIFY(pictures.take(screenPixels().translated(-1, 0)).isNull());
    QCOMPARE(pictures.take(screenPixels()).isNull(), !serverSharesMemory());
}

void ScreenCaptureTest::theProgramKeepsNoMemoryForLong() {
    capturePrimaryScreen();
    QCOMPARE(mappedPictures() > 0, serverSharesMemory());
    QTRY_COMPARE_WITH_TIMEOUT(mappedPictures(), 0, patience);
}

void ScreenCaptureTest::theNextPictureUsesTheMemoryOfTheLast() {
    if (!serverSharesMemory())
        QSKIP("this server writes no pictures into shared memory");
    SharedPictures pictures(1h, nullptr);
    for (int round = 0; round < 20; ++round) {
        const QImage one = pictures.take(screenPixels());
        const QImage other = pictures.take(screenPixels());
        QVERIFY(one.constBits() != other.constBits());
        QCOMPARE(pictures.keptBytes(), std::size_t(0));
    }
    QCOMPARE(mappedPictures(), 2);
    QCOMPARE(pictures.keptBytes(), 2 * std::size_t(toolkitsPicture().sizeInBytes()));
}

void ScreenCaptureTest::memoryGoesBackAfterAWhile() {
    if (!serverSharesMemory())
        QSKIP("this server writes no pictures into shared memory");
    SharedPictures pictures(50ms, nullptr);
    QImage inUse = pictures.take(screenPixels());
    pictures.take(screenPixels());
    QCOMPARE(mappedPictures(), 2);
    QTRY_COMPARE_WITH_TIMEOUT(mappedPictures(), 1, patience);
    QVERIFY(inUse == toolkitsPicture());
    inUse = QImage();
    QTRY_COMPARE_WITH_TIMEOUT(mappedPictures(), 0, patience);
}

void ScreenCaptureTest::aPictureMayGoOnAnotherThreadAndOutliveItsMaker() {
    const QImage expected = toolkitsPicture();
    QImage picture;
    {
        SharedPictures pictures(1h, nullptr);
        picture = pictures.take(screenPixels());
        if (picture.isNull())
            QSKIP("this server writes no pictures into shared memory");
    }
    picture.setDevicePixelRatio(screenRatio());
    QVERIFY(picture == expected);
    std::thread([last = std::move(picture)]() mutable { last = QImage(); }).join();
    QCOMPARE(mappedPictures(), 0);
}

VEXA_WIDGET_TEST_MAIN(ScreenCaptureTest)
#include "ScreenCaptureTest.moc"
