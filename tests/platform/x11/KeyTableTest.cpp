// SPDX-License-Identifier: MIT
#include "platform/x11/input/KeyTable.h"

#include <QTest>

#include <map>
#include <set>

using vexa::x11::isModifier;
using vexa::x11::noKey;
using vexa::x11::positionOf;
using vexa::x11::virtualKeyOf;

class KeyTableTest : public QObject {
    Q_OBJECT

private slots:
    void keysOfTheProduct_data() {
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("key");
        // the pen's letters
        QTest::newRow("A") << 38 << 0;
        QTest::newRow("S") << 39 << 1;
        QTest::newRow("D") << 40 << 2;
        QTest::newRow("G") << 42 << 5;
        QTest::newRow("Y") << 29 << 16;
        QTest::newRow("I") << 31 << 34;
        QTest::newRow("J") << 44 << 38;
        QTest::newRow("M") << 58 << 46;
        // the pen's modifiers, and their neighbours
        QTest::newRow("left control") << 37 << 59;
        QTest::newRow("left shift") << 50 << 56;
        QTest::newRow("left alt") << 64 << 58;
        QTest::newRow("right control") << 105 << 62;
        QTest::newRow("right shift") << 62 << 60;
        QTest::newRow("right alt") << 108 << 61;
        QTest::newRow("left super") << 133 << 55;
        QTest::newRow("right super") << 134 << 54;
        QTest::newRow("caps lock") << 66 << 57;
        // what is posted
        QTest::newRow("escape") << 9 << 53;
        QTest::newRow("return") << 36 << 36;
        QTest::newRow("space") << 65 << 49;
        QTest::newRow("page up") << 112 << 116;
        QTest::newRow("F5") << 71 << 96;
    }

    void keysOfTheProduct() {
        QFETCH(int, x);
        QFETCH(int, key);
        QCOMPARE(virtualKeyOf(static_cast<vexa::x11::XKeyCode>(x)), key);
        QCOMPARE(int(positionOf(key)), x);
    }

    /// Both keyboards row by row, from left to right.
    void rowsOfTheKeyboardAreComplete() {
        struct KeyboardRow {
            int firstX;
            std::vector<int> keys;
        };
        const KeyboardRow keyboard[] = {
            {9,
             {53, 18, 19, 20, 21, 23, 22, 26, 28, 25, 29, 27, 24,
              51}}, // escape, 1 to 0, minus, equals, backspace
            {23, {48, 12, 13, 14, 15, 17, 16, 32, 34, 31, 35, 33, 30, 36}}, // tab, Q to P, brackets, return
            {38, {0, 1, 2, 3, 5, 4, 38, 40, 37, 41, 39, 50}},               // A to L, semicolon, quote, grave
            {51, {42, 6, 7, 8, 9, 11, 45, 46, 43, 47, 44}},       // backslash, Z to M, comma, period, slash
            {67, {122, 120, 99, 118, 96, 97, 98, 100, 101, 109}}, // F1 to F10
            {95, {103, 111}},                                     // F11, F12
            {110, {115, 126, 116, 123, 124, 119, 125, 121, 114, 117}}, // home, up, page up, left ... delete
            {79,
             {89, 91, 92, 78, 86, 87, 88, 69, 83, 84, 85, 82, 65}}, // keypad 7 8 9 - 4 5 6 + 1 2 3 0 decimal
        };
        for (const KeyboardRow &row : keyboard)
            for (std::size_t i = 0; i < row.keys.size(); ++i)
                QCOMPARE(virtualKeyOf(static_cast<vexa::x11::XKeyCode>(row.firstX + int(i))), row.keys[i]);
        const std::map<int, int> others{{63, 67},  {77, 71},  {104, 76}, {106, 75}, {94, 10},
                                        {121, 74}, {122, 73}, {123, 72}, {135, 110}};
        for (const auto &[x, key] : others) // keypad * num-lock enter /, the key left of Z, volume, menu
            QCOMPARE(virtualKeyOf(static_cast<vexa::x11::XKeyCode>(x)), key);
    }

    void thereAndBackIsTheSameKey() {
        int keys = 0;
        for (int key = 0; key < 128; ++key) {
            if (positionOf(key) == 0)
                continue;
            QCOMPARE(virtualKeyOf(positionOf(key)), key);
            ++keys;
        }
        QVERIFY2(keys >= 110, qPrintable(QString::number(keys)));
    }

    void keysThatNoAppleKeyboardHasAreNoKeys() {
        for (const int x : {0, 1, 7, 8, 255})
            QCOMPARE(virtualKeyOf(static_cast<vexa::x11::XKeyCode>(x)), noKey);
        for (const int key : {-1, 63, 127, 128, 1000})
            QCOMPARE(int(positionOf(key)), 0);
    }

    void onlyModifiersAreModifiers() {
        const std::set<int> modifiers{54, 55, 56, 57, 58, 59, 60, 61, 62};
        for (int key = noKey; key < 128; ++key)
            QCOMPARE(isModifier(key), modifiers.count(key) == 1);
    }
};

QTEST_GUILESS_MAIN(KeyTableTest)
#include "KeyTableTest.moc"
