// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>

#include <malloc.h>
#include <unistd.h>

/// This process's resident memory in megabytes, after what was freed has been given back; 0 when the system
/// does not say.
inline double residentMegabytes() {
    malloc_trim(0);
    QFile status(QStringLiteral("/proc/self/statm"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    return status.readAll().split(' ').at(1).toDouble() * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}
