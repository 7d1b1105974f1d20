// SPDX-License-Identifier: MIT
#include "ProcessMeter.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

namespace bench {

namespace {

QByteArray contentOf(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

double processorSeconds(qint64 pid) {
    double nanoseconds = 0;
    const QDir threads(QStringLiteral("/proc/%1/task").arg(pid));
    for (const QString &thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        nanoseconds +=
            contentOf(threads.filePath(thread) + QStringLiteral("/schedstat")).split(' ').first().toDouble();
    return nanoseconds / 1e9;
}

double residentMebibytes(qint64 pid) {
    const double pages = contentOf(QStringLiteral("/proc/%1/statm").arg(pid)).split(' ').value(1).toDouble();
    return pages * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

double proportionalMebibytes(qint64 pid) {
    for (const QByteArray &line : contentOf(QStringLiteral("/proc/%1/smaps_rollup").arg(pid)).split('\n'))
        if (line.startsWith("Pss:"))
            return line.mid(4).trimmed().split(' ').first().toDouble() / 1024.0;
    return 0;
}

} // namespace bench
