// SPDX-License-Identifier: MIT
#include "fakes/mac/Displays.h"
#include "platform/ScreenCapture.h"
#include "support/TestMain.h"

/// A system that no longer has the call by which displays are captured.
class WithoutDisplayImagesTest : public QObject {
    Q_OBJECT

private slots:
    void capturesNothing() {
        fakes::Displays displays;
        QImage picture(100, 100, QImage::Format_RGB32);
        picture.fill(Qt::red);
        displays.connected = {{1, QRectF(0, 0, 100, 100), picture}};
        QVERIFY(vexa::platform::captureScreenRect(QRect(0, 0, 10, 10)).isNull());
        QVERIFY(displays.captured.empty());
        QCOMPARE(displays.searched.size(), std::size_t{1});
    }
};

VEXA_WIDGET_TEST_MAIN(WithoutDisplayImagesTest)
#include "WithoutDisplayImagesTest.moc"
