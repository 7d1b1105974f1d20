// SPDX-License-Identifier: MIT
#include "settings/ZrToolXmlClass.h"

#include "settings/SettingsFile.h"
#include "settings/SettingsFormat.h"

#include <QCoreApplication>

// What holds until a file says otherwise. The built-in file differs on purpose: it is what a fresh
// installation loads, these are what is left for elements a file does not have.
std::int32_t ZrToolXmlClass::Key2P = 1;
std::int32_t ZrToolXmlClass::Key3P = 3;
std::int32_t ZrToolXmlClass::Key4C = 4;
std::int32_t ZrToolXmlClass::Key4P = 2;
std::int32_t ZrToolXmlClass::PenColor0 = 0;
std::int32_t ZrToolXmlClass::PenColor1 = 1;
std::int32_t ZrToolXmlClass::PenColor2 = 2;
std::int32_t ZrToolXmlClass::PenThickness = 0;
std::int32_t ZrToolXmlClass::LaserPenSize = 200;
std::int32_t ZrToolXmlClass::LaserPenColor = 0;
std::int32_t ZrToolXmlClass::MagnifierSize = 200;
std::int32_t ZrToolXmlClass::MagnifierColor = 0;
std::int32_t ZrToolXmlClass::SportLightSize = 200;
std::int32_t ZrToolXmlClass::SportLightTran = 175;
std::int32_t ZrToolXmlClass::AutoStart = 0;
std::int32_t ZrToolXmlClass::Language = 2;
std::int32_t ZrToolXmlClass::ShowPrivacyWindow = 1;
bool ZrToolXmlClass::ifirstRun = false;

namespace {

QString userFile() {
    return QCoreApplication::applicationDirPath() + QStringLiteral("/VexaPenSetting.xml");
}

} // namespace

void ZrToolXmlClass::ZrXmlRead() {
    vexa::FileContent content = vexa::readSettingsFile(userFile());
    if (content.access == vexa::FileAccess::NotOpened)
        content = vexa::readSettingsFile(QStringLiteral(":/VexaPenSetting.xml"));
    if (const auto document = vexa::parseSettings(content.bytes))
        vexa::applySettings(*document);
}

void ZrToolXmlClass::ZrXmlWrite() {
    vexa::replaceSettingsFile(userFile(), vexa::formatSettings());
}
