// SPDX-License-Identifier: MIT
#include "settings/ZrToolXmlClass.h"

#include "settings/SettingsFile.h"
#include "settings/SettingsFormat.h"
#include "settings/SettingsTable.h"

#include <QCoreApplication>

#include <cstddef>
#include <optional>

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

/// What the file holds as far as this process knows: what it has last read or written. Nothing before that.
std::optional<vexa::SettingValues> lastKnown;

QString userFile() {
    return QCoreApplication::applicationDirPath() + QStringLiteral("/VexaPenSetting.xml");
}

vexa::SettingValues current() {
    vexa::SettingValues values{};
    for (const vexa::Setting &setting : vexa::settingsTable)
        values[vexa::indexOf(setting)] = *setting.value;
    return values;
}

/// Another process may have saved its own choices since: those stay, unless the same setting was changed
/// here.
vexa::SettingValues merged(const vexa::SettingValues &ours, const vexa::SettingValues &inFile) {
    vexa::SettingValues values = ours;
    for (std::size_t i = 0; i < values.size(); ++i)
        if (lastKnown && ours[i] == (*lastKnown)[i])
            values[i] = inFile[i];
    return values;
}

} // namespace

void ZrToolXmlClass::ZrXmlRead() {
    vexa::FileContent content = vexa::readSettingsFile(userFile());
    if (content.access == vexa::FileAccess::NotOpened)
        content = vexa::readSettingsFile(QStringLiteral(":/VexaPenSetting.xml"));
    const auto document = vexa::parseSettings(content.bytes);
    if (!document)
        return;
    lastKnown = vexa::settingsIn(*document, current());
    for (const vexa::Setting &setting : vexa::settingsTable)
        *setting.value = (*lastKnown)[vexa::indexOf(setting)];
    ifirstRun = vexa::firstRunIn(*document);
}

void ZrToolXmlClass::ZrXmlWrite() {
    const QString path = userFile();
    const QByteArray present = vexa::readSettingsFile(path).bytes;
    const auto document = vexa::parseSettings(present);
    const vexa::SettingValues ours = current();
    const QByteArray bytes =
        vexa::formatSettings(document ? merged(ours, vexa::settingsIn(*document, ours)) : ours);
    // The view echoes every value it is given; there is no need to go to the disk for what is there already.
    if (bytes == present || vexa::replaceSettingsFile(path, bytes, !document))
        lastKnown = ours;
}
