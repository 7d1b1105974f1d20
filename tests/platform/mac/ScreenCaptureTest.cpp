// SPDX-License-Identifier: MIT
#include "platform/ScreenCapture.h"

#include "fakes/mac/Displays.h"
#include "support/TestMain.h"

#include <optional>

using vexa::platform::captureScreenRect;

namespace {

// A picture in which every pixel says where it is.
QImage map(const QSize &size, int blue) {
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            picture.setPixel(x, y, qRgb(x % 256, y % 256, blue));
    return picture;
}

} // namespace

class ScreenCaptureTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_displays.emplace();
        m_displays->connected = {{7, QRectF(0, 0, 200, 120), map({200, 120}, 1)},
                                 {9, QRectF(200, 0, 100, 100), map({100, 100}, 2)}};
    }
    void cleanup() {
        QCOMPARE(m_displays->imagesAlive, 0);
        m_displays.reset();
    }

    void capturesTheRectangleItIsGiven() {
        const QImage image = captureScreenRect(QRect(10, 20, 100, 50)).toImage();
        QCOMPARE(image.size(), QSize(100, 50));
        QCOMPARE(image.pixel(0, 0), qRgb(10, 20, 1));
        QCOMPARE(image.pixel(99, 49), qRgb(109, 69, 1));
    }

    void asksForTheFirstOfUpTo128Displays() {
        captureScreenRect(QRect(150, 0, 100, 50));
        QCOMPARE(m_displays->roomOffered, 128u);
        QCOMPARE(m_displays->searched, std::vector<QRectF>{QRectF(150, 0, 100, 50)});
        QCOMPARE(m_displays->captured.size(), std::size_t{1});
        QCOMPARE(m_displays->captured[0].display, 7u);
        QCOMPARE(m_displays->boundsRead, std::vector<CGDirectDisplayID>{7});
    }

    void passesGlobalCoordinatesOnUnchanged() {
        captureScreenRect(QRect(220, 30, 40, 50));
        QCOMPARE(m_displays->captured[0].display, 9u);
        QCOMPARE(m_displays->captured[0].rect, QRectF(220, 30, 40, 50));
    }

    void givesDevicePixels() {
        m_displays->connected[0].picture = map({400, 240}, 1);
        const QPixmap pixmap = captureScreenRect(QRect(0, 0, 100, 50));
        QCOMPARE(pixmap.size(), QSize(200, 100));
        QCOMPARE(pixmap.devicePixelRatio(), 1.0);
    }

    void isNullWithoutADisplay() {
        QVERIFY(captureScreenRect(QRect(5000, 5000, 10, 10)).isNull());
        QCOMPARE(m_displays->captured[0].display, 0u); // the list's first entry as it stands
    }

    void isNullWhenTheSystemGivesNoImage() { QVERIFY(captureScreenRect(QRect(-50, -50, 60, 10)).isNull()); }

private:
    std::optional<fakes::Displays> m_displays;
};

VEXA_WIDGET_TEST_MAIN(ScreenCaptureTest)
#include "ScreenCaptureTest.moc"
