// SPDX-License-Identifier: MIT
#pragma once

namespace vexa::platform {

/// Lets the process have as many descriptors open as the program takes, where the system's limit can be
/// raised that far. Throws std::runtime_error, its text meant for the user, where it cannot: the toolkit left
/// without one aborts, or waits for ever for an answer that could not be handed over. Any thread.
void claimDescriptors();

} // namespace vexa::platform
