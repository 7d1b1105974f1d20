// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QLatin1String>

#include <array>

namespace vexa {

/// The colours and widths (pixels) of the annotation pens, in the order of the settings' indices.
inline constexpr std::array<const char *, 8> penColourNames = {"#000000", "#FFFFFF", "#FF0000", "#009EF8",
                                                               "#82FF20", "#FFCC0D", "#ED18FF", "#9C1FFF"};
inline constexpr std::array<int, 4> penWidths = {2, 5, 8, 10};

/// The name of a pen colour, "#RRGGBB"; empty for an index outside the palette.
inline QLatin1String penColourName(int index) {
    const bool known = index >= 0 && index < static_cast<int>(penColourNames.size());
    return QLatin1String(known ? penColourNames[static_cast<std::size_t>(index)] : "");
}

/// The pen colour; an invalid colour for an index outside the palette.
inline QColor penColour(int index) {
    return QColor(penColourName(index));
}

/// The pen width in pixels; 0 for an index outside the table.
inline int penWidth(int index) {
    const bool known = index >= 0 && index < static_cast<int>(penWidths.size());
    return known ? penWidths[static_cast<std::size_t>(index)] : 0;
}

} // namespace vexa
