// SPDX-License-Identifier: MIT
#include "overlays/ColourBands.h"

#include <QTest>

using vexa::colourOfSlider;

class ColourBandsTest : public QObject {
    Q_OBJECT

private slots:
    void bandEdgesHaveTheirColours_data() {
        QTest::addColumn<int>("value");
        QTest::addColumn<QRgb>("colour");
        const struct {
            int value;
            QRgb colour;
        } rows[] = {
            {0, 0xFF000000},    {1, 0xFFFF0100},    {22, 0xFFFF1600},   {255, 0xFFFFFF00},  {256, 0xFF010000},
            {510, 0xFFFF0000},  {511, 0xFF00FF01},  {765, 0xFF00FFFF},  {766, 0xFF0001FF},  {890, 0xFF007DFF},
            {1020, 0xFF00FFFF}, {1021, 0xFF0100FF}, {1274, 0xFFFE00FF}, {1275, 0xFFFFFFFF},
        };
        for (const auto &row : rows)
            QTest::addRow("%d", row.value) << row.value << row.colour;
    }
    void bandEdgesHaveTheirColours() {
        QFETCH(int, value);
        QFETCH(QRgb, colour);
        QCOMPARE(colourOfSlider(value).rgba(), colour);
    }

    void everyValueFollowsItsBand() {
        for (int value = 1; value <= 1274; ++value) {
            QColor expected;
            if (value <= 255)
                expected = QColor(255, value, 0);
            else if (value <= 510)
                expected = QColor(value - 255, 0, 0);
            else if (value <= 765)
                expected = QColor(0, 255, value - 510);
            else if (value <= 1020)
                expected = QColor(0, value - 765, 255);
            else
                expected = QColor(value - 1020, 0, 255);
            QCOMPARE(colourOfSlider(value), expected);
        }
    }

    void valuesOffTheSliderAreBlack() {
        for (const int value : {-1, -2147483647 - 1, 1276, 100000, 2147483647})
            QCOMPARE(colourOfSlider(value), QColor(0, 0, 0, 255));
    }
};

QTEST_APPLESS_MAIN(ColourBandsTest)
#include "ColourBandsTest.moc"
