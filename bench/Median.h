// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <vector>

namespace bench {

/// The middle one of the values, of which there has to be one; of an even number the upper middle.
inline double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

} // namespace bench
