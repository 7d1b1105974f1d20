// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <chrono>

namespace vexa::platform {

/// The command line for the system's shell that makes the program start at login, or no longer. It ends with
/// 0 when that has been done. Needs the application object.
QString autoStartCommand(bool enable);

/// How long that may take before it counts as failed. Where the system asks the user for consent meanwhile,
/// that includes the time to answer.
std::chrono::milliseconds autoStartLimit();

} // namespace vexa::platform
