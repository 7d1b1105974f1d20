// SPDX-License-Identifier: MIT
#include "app/PrivacyGate.h"

#include "app/PrivacyprivilegesWindow.h"
#include "app/QuitRequest.h"
#include "overlays/Grab.h"
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

void passPrivacyGate(const QuitRequest &quit) {
    passPrivacyGate({[] { return PrivacyprivilegesWindow().exec(); },
                     [&quit] {
                         if (!quit.requested())
                             Grab::SetpTosysCamera();
                     }});
}

} // namespace vexa
