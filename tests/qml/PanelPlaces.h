// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>

/// Where things stand in the panel, in points from its top left corner: the middles of buttons, the corners
/// of all else.
namespace places {

constexpr QPoint key1Button(679 + 12, 457 + 12);
constexpr QPoint key2Button(296 + 12, 457 + 12);
constexpr QPoint key3Button(679 + 12, 196 + 12);
constexpr QPoint key4Button(296 + 12, 196 + 12);
constexpr QPoint settingsButton(951 + 9, 598 + 9);
constexpr QPoint closeButton(955 + 16, 12 + 16);

constexpr QPoint key2Value(296, 573);
constexpr QPoint key3Value(506, 171);
constexpr QPoint key4ClickValue(296, 133);
constexpr QPoint key4LongValue(296, 171);

constexpr QPoint key1View(712, 87);
constexpr QPoint penPage = key1View + QPoint(30, 114);
constexpr QPoint key2View(30, 321);
constexpr QPoint key2List = key2View + QPoint(20, 136);
constexpr QPoint key3View(712, 87);
constexpr QPoint key3List = key3View + QPoint(20, 136);
constexpr QPoint key4View(30, 87);
constexpr QPoint clickList = key4View + QPoint(20, 42);
constexpr QPoint longPressList = key4View + QPoint(20, 136);
constexpr QPoint toolHeading = key4View + QPoint(20, 188);
constexpr QPoint toolSettings = key4View + QPoint(20, 208);
constexpr QPoint firstSlider = toolSettings + QPoint(16, 176);
constexpr QPoint secondSlider = toolSettings + QPoint(16, 228);
constexpr QPoint settingsView(722, 207);
constexpr QPoint settingsTitle = settingsView + QPoint(20, 23);
constexpr QPoint autoStart = settingsView + QPoint(189, 74);
constexpr QPoint languageBox = settingsView + QPoint(87, 129);

} // namespace places
