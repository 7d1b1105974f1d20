// SPDX-License-Identifier: MIT
#include "settings/ZrToolXmlClass.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

/// Saves a settings file beside itself again and again, each time with one number in three of its values, and
/// says so with a dot. With an argument it does so that many times, else until it is killed.
int main(int argc, char *argv[]) {
    const QCoreApplication application(argc, argv);
    const int rounds = argc > 1 ? std::atoi(argv[1]) : -1;
    for (int i = 0; i != rounds; ++i) {
        const int mark = 100000 + i;
        ZrToolXmlClass::Key2P = mark;
        ZrToolXmlClass::SportLightSize = mark;
        ZrToolXmlClass::ShowPrivacyWindow = mark;
        ZrToolXmlClass::ZrXmlWrite();
        std::putchar('.');
        std::fflush(stdout);
    }
    return 0;
}
