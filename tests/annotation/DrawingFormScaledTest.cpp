// SPDX-License-Identifier: MIT
#include "annotation/DrawingFaces.h"
#include "support/Pattern.h"
#include "support/TestMain.h"

using namespace vexa::test;

/// The drawing window on a display of two device pixels a point.
class DrawingFormScaledTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        ZrToolXmlClass::PenColor0 = 2;
        ZrToolXmlClass::PenThickness = 3;
    }

    void pictureOfTheScreenCoversItPixelByPixel() {
        const QImage slide = pattern({1920, 1080});
        const std::unique_ptr<vexa::DrawingForm> form(openOver(slide));
        QTRY_COMPARE(faces::screen().pixel(301, 303), slide.pixel(301, 303));
        const QImage shot = faces::screen();
        QCOMPARE(shot.size(), slide.size());
        for (int y = 100; y < 800; ++y)
            for (int x = 0; x < 1920; ++x)
                QCOMPARE(shot.pixel(x, y), slide.pixel(x, y));
    }

    void strokeIsTenPointsWideAndCrispToThePixel() {
        const QImage slide = pattern({1920, 1080});
        const std::unique_ptr<vexa::DrawingForm> form(openOver(slide));
        faces::stroke(*form, faces::line({100, 150}, {400, 150}, 60));
        QTRY_COMPARE(faces::screen().pixel(500, 300), 0xffff0000);
        const QImage shot = faces::screen();
        for (int y = 280; y < 320; ++y)
            QCOMPARE(shot.pixel(500, y), y >= 290 && y < 310 ? 0xffff0000 : slide.pixel(500, y));
    }

    void controlsStandAtTheirPlacesInPoints() {
        const std::unique_ptr<vexa::DrawingForm> form(openOver(pattern({1920, 1080})));
        QCOMPARE(form->geometry(), QRect(0, 0, 960, 540));
        QCOMPARE(faces::eraserButton(*form)->geometry(), QRect(450, 440, 60, 60));
        QCOMPARE(faces::title(*form)->geometry(), QRect(340, 0, 280, 40));
    }

private:
    static vexa::DrawingForm *openOver(const QImage &slide) {
        QPixmap picture = QPixmap::fromImage(slide);
        picture.setDevicePixelRatio(2);
        return faces::open(faces::annotation, picture);
    }
};

VEXA_WIDGET_TEST_MAIN(DrawingFormScaledTest)
#include "DrawingFormScaledTest.moc"
