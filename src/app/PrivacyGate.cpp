// SPDX-License-Identifier: MIT
#include "app/PrivacyGate.h"

#include "settings/ZrToolXmlClass.h"

namespace vexa {

namespace {

constexpr int neverAgain = 1;

} // namespace

void passPrivacyGate(const PrivacyGateActions &actions) {
    if (ZrToolXmlClass::ShowPrivacyWindow == 0)
        return;
    const int answer = actions.runGuide();
    actions.openScreenRecordingSettings();
    if (answer == neverAgain) {
        ZrToolXmlClass::ShowPrivacyWindow = 0;
        ZrToolXmlClass::ZrXmlWrite();
    }
}

} // namespace vexa
