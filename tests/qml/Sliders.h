// SPDX-License-Identifier: MIT
#pragma once

#include "qml/PanelPlaces.h"

#include <QtTest>

#include <cmath>

/// The sliders of the tools' settings.
namespace sliders {

enum Tool { spotlight = 0, magnifier = 1, laser = 2 };

constexpr int width = 175;
constexpr int handle = 12;
constexpr int middleOfTrack = 3;

struct Slider {
    const char *name;
    Tool tool;
    QPoint corner;
    int id;
    const char *element; ///< of the settings file
    int least;
    int most;
};
constexpr Slider all[] = {
    {"darkness", spotlight, places::firstSlider, 2, "SportLightTran", 80, 255},
    {"light", spotlight, places::secondSlider, 3, "SportLightSize", 50, 250},
    {"ring", magnifier, places::firstSlider, 4, "MagnifierColor", 0, 1275},
    {"lens", magnifier, places::secondSlider, 5, "MagnifierSize", 50, 250},
    {"dot's colour", laser, places::firstSlider, 6, "LaserPenColor", 0, 1275},
    {"dot", laser, places::secondSlider, 7, "LaserPenSize", 5, 25},
};

/// The place of a slider where it takes this share of its range.
inline QPoint at(const QPoint &slider, double share) {
    return slider +
           QPoint(static_cast<int>(std::lround(handle / 2.0 + share * (width - handle))), middleOfTrack);
}

} // namespace sliders

Q_DECLARE_METATYPE(sliders::Slider)

namespace sliders {

/// The rows of a test that holds for each.
inline void everySlider() {
    QTest::addColumn<Slider>("slider");
    for (const Slider &slider : all)
        QTest::newRow(slider.name) << slider;
}

} // namespace sliders
