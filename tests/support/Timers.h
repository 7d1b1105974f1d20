// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractEventDispatcher>
#include <QVector>

#include <algorithm>

namespace vexa::test {

/// The intervals of the coarse timers that an object has running, in milliseconds, the shortest first: tells
/// how long a delay is without measuring it, which a busy machine would make longer.
inline QVector<int> coarseTimersOf(QObject *object) {
    QVector<int> intervals;
    for (const auto &timer : QAbstractEventDispatcher::instance()->registeredTimers(object))
        if (timer.timerType == Qt::CoarseTimer)
            intervals += timer.interval;
    std::sort(intervals.begin(), intervals.end());
    return intervals;
}

} // namespace vexa::test
