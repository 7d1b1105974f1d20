// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace vexa {

class QuitRequest;

/// What the gate does with the outside world.
struct PrivacyGateActions {
    std::function<int()> runGuide; ///< shows the guide until it is answered; 1: never again
    std::function<void()> openScreenRecordingSettings;
};

/// Shows the guide to the privacy permissions, if the settings say so, then takes the user to the permission
/// that matters most. Being told never to show it again is saved at once. GUI thread.
void passPrivacyGate(const PrivacyGateActions &actions);

/// Does so with the guide's own window and the system's own settings. A user who has asked the program to end
/// during the guide is not sent anywhere any more.
void passPrivacyGate(const QuitRequest &quit);

} // namespace vexa
