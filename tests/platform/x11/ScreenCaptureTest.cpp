// SPDX-License-Identifier: MIT
#include "platform/ScreenCapture.h"

#include "platform/OverlayWindow.h"
#include "platform/x11/ScreenBands.h"
#include "support/ForeignWindow.h"
#include "support/ScreenProbe.h"
#include "support/TestMain.h"

#include <QScreen>
#include <QX11Info>

#include <xcb/shm.h>

using namespace vexa::test;
using vexa::platform::capturePrimaryScreen;
using vexa::platform::ScreenBands;

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

} // namespace

/// Runs on a plain server, on one without shared memory, at 16 bits and at double density.
class ScreenCaptureTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
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

    void cleanupTestCase() { delete m_wall; }

    void everyPixelIsTheToolkits() {
        const QPixmap picture = capturePrimaryScreen();
        const QImage expected = toolkitsPicture();
        QCOMPARE(picture.devicePixelRatio(), expected.devicePixelRatio());
        QCOMPARE(picture.toImage().format(), expected.format());
        // With the fourth byte, which a comparison of images leaves out.
        QVERIFY(bytesOf(picture.toImage()) == bytesOf(expected));
    }

    void bandsAreUsedWhereTheyCan() { QCOMPARE(ScreenBands::instance() != nullptr, serverSharesMemory()); }

    void aPictureStaysWhenTheScreenChanges() {
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

    void drawingOnAPictureChangesNoOther() {
        const QImage expected = toolkitsPicture();
        const QPixmap picture = capturePrimaryScreen();
        QPixmap copy = picture;
        copy.fill(Qt::red);
        QVERIFY(picture.toImage() == expected);
    }

    void aPartOfTheScreenIsThatPart() {
        if (!serverSharesMemory())
            QSKIP("this server shares no memory");
        QImage expected = toolkitsPicture();
        expected.setDevicePixelRatio(1);
        // One row, one column, rows that fill no band, and many bands.
        for (const QRect &part : {QRect(0, 0, 1, 1), QRect(5, 9, 700, 1), QRect(9, 5, 1, 500),
                                  QRect(31, 17, 203, 99), QRect(1, 1, 799, 598)})
            QVERIFY(bytesOf(ScreenBands::instance()->take(part)) == bytesOf(expected.copy(part)));
    }

    void nothingOutsideTheScreenCanBeTaken() {
        if (!serverSharesMemory())
            QSKIP("this server shares no memory");
        const ScreenBands &bands = *ScreenBands::instance();
        QVERIFY(bands.take({}).isNull());
        QVERIFY(bands.take(screenPixels().adjusted(0, 0, 1, 0)).isNull());
        QVERIFY(bands.take(screenPixels().translated(-1, 0)).isNull());
        QVERIFY(bands.take(screenPixels().translated(0, 1)).isNull());
        QVERIFY(!bands.take(screenPixels()).isNull());
    }

    void nobodyElseWaitsForTheServerAfterwards() {
        const QPixmap picture = capturePrimaryScreen();
        QCOMPARE(picture.isNull(), false);
        if (serverSharesMemory())
            QVERIFY(ScreenBands::instance()->take(screenPixels().adjusted(0, 0, 1, 0)).isNull());
        // Another client is answered without a word more from this one.
        const ForeignWindow other(ForeignWindow::Kind::Unmanaged, QRect(0, 0, 10, 10), Qt::green);
        QVERIFY(other.isViewable());
    }

private:
    void paintWall(const QBrush &brush) {
        QPalette palette;
        palette.setBrush(QPalette::Window, brush);
        m_wall->setPalette(palette);
        m_wall->repaint();
        QCoreApplication::processEvents();
    }

    QWidget *m_wall = nullptr;
};

VEXA_WIDGET_TEST_MAIN(ScreenCaptureTest)
#include "ScreenCaptureTest.moc"
