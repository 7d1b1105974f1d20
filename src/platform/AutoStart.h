// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace vexa::platform {

/// The command line for the system's shell that makes the program start at login, or no longer. It ends with
/// 0 when that has been done. Needs the application object.
QString autoStartCommand(bool enable);

} // namespace vexa::platform
