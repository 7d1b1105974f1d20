// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

namespace vexa {

/// The colour a colour slider stands for at a value of 0 to 1275; black outside that range.
/// Any thread.
///
/// The second band is a ramp from dark to bright red, not from yellow to green: the sliders are painted that
/// way.
QColor colourOfSlider(int value);

} // namespace vexa
