// SPDX-License-Identifier: MIT
#include "platform/AutoStart.h"

#include <QCoreApplication>

#include <cstdio>

/// Says the two commands, one a line. The test runs it from folders of all names.
int main(int argc, char *argv[]) {
    const QCoreApplication application(argc, argv);
    for (bool enable : {true, false})
        std::puts(vexa::platform::autoStartCommand(enable).toLocal8Bit().constData());
    return 0;
}
