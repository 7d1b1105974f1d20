// SPDX-License-Identifier: MIT
#pragma once

namespace vexa::platform {

/// Keeps the system from putting the program to sleep while none of its windows shows, as long as it runs:
/// the pen would be answered seconds late. The Mac itself may still go to sleep. Main thread, once.
void preventAppNap();

} // namespace vexa::platform
