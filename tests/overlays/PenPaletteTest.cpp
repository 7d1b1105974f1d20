// SPDX-License-Identifier: MIT
#include "overlays/PenPalette.h"

#include <QTest>

class PenPaletteTest : public QObject {
    Q_OBJECT

private slots:
    void eightColoursInTheirOrder() {
        const QRgb expected[] = {0xFF000000, 0xFFFFFFFF, 0xFFFF0000, 0xFF009EF8,
                                 0xFF82FF20, 0xFFFFCC0D, 0xFFED18FF, 0xFF9C1FFF};
        for (int index = 0; index < 8; ++index) {
            QCOMPARE(vexa::penColour(index).rgba(), expected[index]);
            QCOMPARE(QString(vexa::penColourName(index)), vexa::penColour(index).name().toUpper());
        }
    }

    void fourWidthsInTheirOrder() {
        const int expected[] = {2, 5, 8, 10};
        for (int index = 0; index < 4; ++index)
            QCOMPARE(vexa::penWidth(index), expected[index]);
    }

    void outsideThePaletteThereIsNoColourAndNoWidth() {
        for (const int index : {-1, 8, 1000000}) {
            QVERIFY(!vexa::penColour(index).isValid());
            QVERIFY(vexa::penColourName(index).isEmpty());
        }
        for (const int index : {-1, 4, 1000000})
            QCOMPARE(vexa::penWidth(index), 0);
    }
};

QTEST_APPLESS_MAIN(PenPaletteTest)
#include "PenPaletteTest.moc"
