// SPDX-License-Identifier: MIT
#include "overlays/ColourBands.h"

namespace vexa {
namespace {

enum Channel { Zero, Full, Ramp };

/// The values up to `last` that no earlier band took; a ramp starts with 0 at `start`.
struct Band {
    int last;
    int start;
    Channel red, green, blue;
};

constexpr Band bands[] = {
    {0, 0, Zero, Zero, Zero},       {255, 0, Full, Ramp, Zero},    {510, 255, Ramp, Zero, Zero},
    {765, 510, Zero, Full, Ramp},   {1020, 765, Zero, Ramp, Full}, {1274, 1020, Ramp, Zero, Full},
    {1275, 1275, Full, Full, Full},
};

} // namespace

QColor colourOfSlider(int value) {
    if (value < 0)
        return Qt::black;
    for (const Band &band : bands) {
        if (value > band.last)
            continue;
        const auto level = [&](Channel channel) {
            return channel == Ramp ? value - band.start : channel == Full ? 255 : 0;
        };
        return {level(band.red), level(band.green), level(band.blue)};
    }
    return Qt::black;
}

} // namespace vexa
