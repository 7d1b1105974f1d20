// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace bench {

/// Time in which a processor of this machine had work and the host gave it to another guest, of all
/// processors since the machine's start; in the ticks of /proc/stat, of which a second has 100. 0 where the
/// host does not tell.
qint64 stolenTicks();

} // namespace bench
