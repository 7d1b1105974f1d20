// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace vexa {

/// What the gate does with the outside world.
struct PrivacyGateActions {
    std::function<int()> runGuide; ///< shows the guide until it is answered; 1: never again
    std::function<void()> openScreenRecordingSettings;
};

/// Shows the guide to the privacy permissions, if the settings say so, then takes the user to the permission
/// that matters most. Being told never to show it again is saved at once. GUI thread.
void passPrivacyGate(const PrivacyGateActions &actions);

} // namespace vexa
