// SPDX-License-Identifier: MIT
#pragma once

#include "Sanitized.h"

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

/// The megabytes by which so many repetitions of a step grow this process, after those that warm it up. Under
/// the address sanitizer, which looks for leaks itself, the step is taken twenty times, and the growth is 0.
template<typename Step> double growth(int warmUp, int repetitions, Step step) {
    for (int i = 0; !addressSanitized && i < warmUp; ++i)
        step();
    const double before = residentMegabytes();
    for (int i = 0; i < (addressSanitized ? 20 : repetitions); ++i)
        step();
    return addressSanitized ? 0 : residentMegabytes() - before;
}

} // namespace vexa::test
