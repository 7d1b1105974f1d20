// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>

namespace vexa {

/// Towards zero, as a cast does; kept within what a rectangle's arithmetic can hold, as sizes come from a
/// file.
inline int truncated(double value) {
    return static_cast<int>(std::clamp(value, -1e8, 1e8));
}

} // namespace vexa
