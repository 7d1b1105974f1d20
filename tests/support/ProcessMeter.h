// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace vexa::test {

// What a process uses, as the kernel tells it. Where it does not tell, as of a process that has gone, amounts
// are not a number, which no comparison holds for, and counts are 0, which noMore() takes for a failure.

/// Processor time that all threads of a process have used so far, in seconds; to the nanosecond as the kernel
/// counts.
double processorSeconds(qint64 pid);

/// Memory that a process keeps resident, in MiB. Pages of files count whole, however many programs use them.
double residentMebibytes(qint64 pid);

/// The most that was ever resident, in MiB.
double peakMebibytes(qint64 pid);

/// Memory that a process has in use, in MiB, where pages that several share count for each in part.
double proportionalMebibytes(qint64 pid);

/// Descriptors that are open, and threads that run.
int descriptorsOf(qint64 pid);
int threadsOf(qint64 pid);

/// Whether there are some, and no more than before.
inline bool noMore(int before, int now) {
    return now > 0 && now <= before;
}

} // namespace vexa::test
