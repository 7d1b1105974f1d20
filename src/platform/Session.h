// SPDX-License-Identifier: MIT
#pragma once

/// The desktop session the program is to run in.
namespace vexa::platform {

/// Sets the stage before the application object exists. Throws std::runtime_error, its text meant for the
/// user, when there is no session the program could run in. Main thread.
void prepareSession();

} // namespace vexa::platform
