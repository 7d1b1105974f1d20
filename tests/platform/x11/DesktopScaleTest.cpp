// SPDX-License-Identifier: MIT
#include "platform/x11/DesktopScale.h"

#include <QTest>

using vexa::platform::Pixels;

class DesktopScaleTest : public QObject {
    Q_OBJECT

private slots:
    void followsTheDesktopAsFarAsThePanelFits_data() {
        QTest::addColumn<QByteArray>("saying");
        QTest::addColumn<QSize>("screen");
        QTest::addColumn<double>("scale");
        const auto row = [](const char *saying, int width, int height, double scale) {
            QTest::addRow("%s on %dx%d", saying, width, height)
                << QByteArray(saying) << QSize(width, height) << scale;
        };
        row("", 3840, 2160, 1);
        row("96", 3840, 2160, 1);
        row("107", 3840, 2160, 1);
        row("109", 3840, 2160, 1.25);
        row("120.5", 3840, 2160, 1.25);
        row("144", 3840, 2160, 1.5);
        row("168", 3840, 2160, 1.75);
        row("192", 3840, 2160, 2);
        row("288", 3840, 2160, 3);
        row("480", 7680, 4320, 5);
        // The panel has 999 x 650 points.
        row("144", 1920, 1080, 1.5);
        row("192", 1920, 1080, 1.5);
        row("384", 3840, 2160, 3.25);
        row("192", 1998, 1300, 2);
        row("192", 1997, 1300, 1.75);
        row("192", 1998, 1299, 1.75);
        row("144", 1366, 768, 1);
        row("144", 800, 600, 1);
        row("144", 0, 0, 1);
        for (const char *absurd :
             {"99999", "961", "95", "40", "0", "-144", "nan", "inf", "1e400", "large", "144 dpi"})
            row(absurd, 7680, 4320, 1);
    }

    void followsTheDesktopAsFarAsThePanelFits() {
        QFETCH(QByteArray, saying);
        QFETCH(QSize, screen);
        QTEST(vexa::platform::scaleFor(saying, {screen.width(), screen.height()}), "scale");
    }
};

QTEST_APPLESS_MAIN(DesktopScaleTest)
#include "DesktopScaleTest.moc"
