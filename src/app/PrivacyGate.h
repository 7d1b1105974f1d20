// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace vexa {

class QuitRequest;

/// What the gate does outside the settings, replaceable for tests.
struct PrivacyGateActions {
    std::function<int()> runGuide; ///< shows the guide until it is answered; 1: never again
    std::function<void()> openScreenRecordingSettings;
};

/// If the settings say so, shows the guide to the privacy permissions and then opens the system's settings at
/// the screen recording permission. The user's choice never to see the guide again is saved at once. GUI
/// thread; returns when the guide is answered.
void passPrivacyGate(const PrivacyGateActions &actions);

/// The same with the real window and the real system settings. If the program is asked to end during the
/// guide, the system settings are not opened.
void passPrivacyGate(const QuitRequest &quit);

} // namespace vexa
