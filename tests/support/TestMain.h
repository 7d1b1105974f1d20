// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QTest>

/// The entry function of a test that shows windows: as in the program, one point is one pixel.
#define VEXA_WIDGET_TEST_MAIN(TestClass)                                                                     \
    int main(int argc, char *argv[]) {                                                                       \
        qputenv("QT_FONT_DPI", "72");                                                                        \
        QApplication application(argc, argv);                                                                \
        QApplication::setQuitOnLastWindowClosed(false);                                                      \
        TestClass test;                                                                                      \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
