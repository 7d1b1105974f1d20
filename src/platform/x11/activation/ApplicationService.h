// SPDX-License-Identifier: MIT
#pragma once

#include <systemd/sd-bus.h>

namespace vexa::platform {

/// Offers launchers what they find of this program on the session bus: org.freedesktop.Application under the
/// program's name. Of several instances on one bus, one for each display, the longest running has the name.
/// False when the connection does not take it. Calls reach the thread that processes the connection, which
/// has to be the GUI thread.
bool offerApplication(sd_bus *bus);

} // namespace vexa::platform
