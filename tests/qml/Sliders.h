// SPDX-License-Identifier: MIT
#pragma once

#include "qml/PanelPlaces.h"
#include "settings/Choices.h"
#include "settings/ViewMessage.h"

#include <QTest>

#include <cmath>

/// The sliders of the tools' settings.
namespace sliders {

constexpr auto spotlight = vexa::HeldToolChoice::Spotlight;
constexpr auto magnifier = vexa::HeldToolChoice::Magnifier;
constexpr auto laser = vexa::HeldToolChoice::Laser;

constexpr int width = 175;
constexpr int handle = 12;
constexpr int middleOfTrack = 3;

struct Slider {
    const char *name;
    vexa::HeldToolChoice tool;
    QPoint corner;
    vexa::ViewMessage message;
    const char *element; ///< of the settings file
    int least;
    int most;
};
constexpr Slider all[] = {
    {"darkness", spotlight, places::firstSlider, vexa::ViewMessage::SportLightTran, "SportLightTran", 80,
     255},
    {"light", spotlight, places::secondSlider, vexa::ViewMessage::SportLightSize, "SportLightSize", 50, 250},
    {"ring", magnifier, places::firstSlider, vexa::ViewMessage::MagnifierColor, "MagnifierColor", 0, 1275},
    {"lens", magnifier, places::secondSlider, vexa::ViewMessage::MagnifierSize, "MagnifierSize", 50, 250},
    {"dot's colour", laser, places::firstSlider, vexa::ViewMessage::LaserPenColor, "LaserPenColor", 0, 1275},
    {"dot", laser, places::secondSlider, vexa::ViewMessage::LaserPenSize, "LaserPenSize", 5, 25},
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
