// SPDX-License-Identifier: MIT
#pragma once

#include "settings/ZrToolXmlClass.h"

#include <QByteArray>

#include <cstdint>
#include <functional>

namespace vexa::test {

/// What the tests expect of a setting, written down independently of the program's own table.
struct StoredSetting {
    const char *element;
    int message; ///< between the view and its host; 0 where there is none
    std::int32_t *value;
    std::int32_t atStart; ///< before anything was read
    std::int32_t shipped; ///< after the first reading of the built-in file
};

/// All of them, in the order in which the file has them.
inline constexpr StoredSetting storedSettings[] = {
    {"Key2P", 12, &ZrToolXmlClass::Key2P, 1, 1},
    {"Key3P", 13, &ZrToolXmlClass::Key3P, 3, 3},
    {"PenColor0", 8, &ZrToolXmlClass::PenColor0, 0, 2},
    {"PenColor1", 9, &ZrToolXmlClass::PenColor1, 1, 1},
    {"PenColor2", 10, &ZrToolXmlClass::PenColor2, 2, 0},
    {"PenThickness", 11, &ZrToolXmlClass::PenThickness, 0, 1},
    {"SportLightSize", 3, &ZrToolXmlClass::SportLightSize, 200, 183},
    {"SportLightTran", 2, &ZrToolXmlClass::SportLightTran, 175, 132},
    {"MagnifierSize", 5, &ZrToolXmlClass::MagnifierSize, 200, 177},
    {"MagnifierColor", 4, &ZrToolXmlClass::MagnifierColor, 0, 890},
    {"LaserPenSize", 7, &ZrToolXmlClass::LaserPenSize, 200, 13},
    {"LaserPenColor", 6, &ZrToolXmlClass::LaserPenColor, 0, 22},
    {"Key4C", 14, &ZrToolXmlClass::Key4C, 4, 4},
    {"Key4P", 15, &ZrToolXmlClass::Key4P, 2, 0},
    {"AutoStart", 17, &ZrToolXmlClass::AutoStart, 0, 1},
    {"Language", 16, &ZrToolXmlClass::Language, 2, 0},
    {"ShowPrivacyWindow", 0, &ZrToolXmlClass::ShowPrivacyWindow, 1, 1},
};

inline QByteArray elementSaying(const StoredSetting &setting, int value) {
    return QByteArray("<") + setting.element + '>' + QByteArray::number(value) + "</" + setting.element + '>';
}

/// The file as the program writes it, to the byte, with this value for each setting.
inline QByteArray savedFile(const std::function<int(const StoredSetting &)> &value) {
    QByteArray xml =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<PenSetting FirstRun=\"1\">\n    <Setting>\n";
    for (const StoredSetting &setting : storedSettings)
        xml += "        " + elementSaying(setting, value(setting)) + '\n';
    return xml + "    </Setting>\n</PenSetting>\n";
}

} // namespace vexa::test
