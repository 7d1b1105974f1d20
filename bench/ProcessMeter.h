// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace bench {

/// Processor time that all threads of a process have used so far, in seconds; to the nanosecond as the kernel
/// counts.
double processorSeconds(qint64 pid);

/// Memory that a process keeps resident, in MiB.
double residentMebibytes(qint64 pid);

/// Memory that a process has in use, in MiB, where pages that several share count for each in part.
double proportionalMebibytes(qint64 pid);

} // namespace bench
