// SPDX-License-Identifier: MIT
#include "support/ProcessMeter.h"

#include <QDir>
#include <QFile>

#include <limits>

namespace vexa::test {

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

QString placeOf(qint64 pid, const char *name) {
    return QStringLiteral("/proc/%1/%2").arg(pid).arg(QLatin1String(name));
}

QByteArray contentOf(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The amount in a line such as "Rss:   1024 kB".
double mebibytes(const QByteArray &table, const char *row) {
    for (const QByteArray &line : table.split('\n'))
        if (line.startsWith(row))
            return line.simplified().split(' ').value(1).toDouble() / 1024;
    return notANumber;
}

int entriesOf(const QString &folder) {
    return int(QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size());
}

} // namespace

double processorSeconds(qint64 pid) {
    const QDir threads(placeOf(pid, "task"));
    const QStringList names = threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    double nanoseconds = names.isEmpty() ? notANumber : 0;
    for (const QString &thread : names)
        nanoseconds += contentOf(threads.filePath(thread) + "/schedstat").split(' ').first().toDouble();
    return nanoseconds / 1e9;
}

double residentMebibytes(qint64 pid) {
    return mebibytes(contentOf(placeOf(pid, "smaps_rollup")), "Rss:");
}

double peakMebibytes(qint64 pid) {
    return mebibytes(contentOf(placeOf(pid, "status")), "VmHWM:");
}

double proportionalMebibytes(qint64 pid) {
    return mebibytes(contentOf(placeOf(pid, "smaps_rollup")), "Pss:");
}

int descriptorsOf(qint64 pid) {
    return entriesOf(placeOf(pid, "fd"));
}

int threadsOf(qint64 pid) {
    return entriesOf(placeOf(pid, "task"));
}

} // namespace vexa::test
