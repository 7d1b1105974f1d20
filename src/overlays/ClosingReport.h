// SPDX-License-Identifier: MIT
#pragma once

namespace vexa {

/// What a window over the screen reports when it closes, as the number that its signal carries. These numbers
/// are not those of the setting that chooses a held tool.
enum class ClosingReport {
    Blackboard = 0,
    Annotation = 1,
    Spotlight = 2,
    Magnifier = 3,
    Laser = 4,
};

} // namespace vexa
