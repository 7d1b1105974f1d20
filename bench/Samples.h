// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>

#include <functional>
#include <vector>

namespace bench {

/// Times of one thing on a machine whose processors the host may give to its other guests meanwhile. A sample
/// is disturbed when the kernel's count of stolen time grew on any processor while it was taken: it then says
/// how long another guest ran. The count goes in hundredths of a second, so an undisturbed sample may still
/// have lost less than that, and a disturbed one may only have completed what was lost before it.
class Samples {
public:
    /// Starts the time that the whole series may take.
    Samples();

    /// Measures once, in milliseconds, and keeps the value when it is undisturbed. False when the measurement
    /// answers that it failed, with less than 0.
    bool take(const std::function<double()> &measure);

    /// Enough are undisturbed, or trying further would take too long.
    bool areEnough() const;

    const std::vector<double> &undisturbed() const { return m_undisturbed; }
    int taken() const { return m_taken; }

private:
    std::vector<double> m_undisturbed;
    int m_taken = 0;
    QElapsedTimer m_series;
};

} // namespace bench
