// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>

#include <malloc.h>
#include <unistd.h>

namespace vexa::test {

/// This process's resident memory in bytes, with what was freed but not given back; 0 when the system does
/// not say.
inline qint64 residentBytes() {
    QFile status(QStringLiteral("/proc/self/statm"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    return status.readAll().split(' ').at(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

/// In megabytes, after what was freed has been given back.
inline double residentMegabytes() {
    malloc_trim(0);
    return static_cast<double>(residentBytes()) / 1e6;
}

} // namespace vexa::test
