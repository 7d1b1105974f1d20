// SPDX-License-Identifier: MIT
#include "Samples.h"

#include "HostMeter.h"

#include <QThread>

namespace bench {

namespace {

constexpr int wanted = 20;
constexpr int most = 120;
constexpr qint64 patience = 18000; // milliseconds: 20 of a held tool, which lives for 0.9 seconds

// What the host took is counted at a processor's next tick: longer than one of 4 ms.
constexpr int counted = 5; // milliseconds

} // namespace

Samples::Samples() {
    m_series.start();
}

bool Samples::take(const std::function<double()> &measure) {
    const qint64 before = stolenTicks();
    const double milliseconds = measure();
    if (milliseconds < 0)
        return false;
    QThread::msleep(counted);
    ++m_taken;
    if (stolenTicks() == before)
        m_undisturbed.push_back(milliseconds);
    return true;
}

bool Samples::areEnough() const {
    return m_undisturbed.size() >= wanted || m_taken >= most || m_series.elapsed() > patience;
}

} // namespace bench
