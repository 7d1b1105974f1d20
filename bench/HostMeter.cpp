// SPDX-License-Identifier: MIT
#include "HostMeter.h"

#include <QByteArray>
#include <QFile>

namespace bench {

namespace {

// cpu0 user nice system idle iowait irq softirq steal ...
constexpr int stealColumn = 8;

} // namespace

qint64 stolenTicks() {
    QFile file(QStringLiteral("/proc/stat"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    qint64 ticks = 0;
    for (const QByteArray &line : file.readAll().split('\n'))
        if (line.startsWith("cpu") && !line.startsWith("cpu "))
            ticks += line.split(' ').value(stealColumn).toLongLong();
    return ticks;
}

} // namespace bench
