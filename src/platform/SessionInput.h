// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// The input of the session that the program runs in. Any thread.
namespace vexa::platform {

/// Makes the session the place where taps listen and posts go, until setInputBackend() says otherwise. Call
/// before the first tap. The argument is the primary screen's scale, in device pixels per point. On macOS the
/// session is that place already: there it asks the user for what listening needs, and logs what is missing.
void useSessionInput(double devicePixelsPerPoint);

/// Why the session cannot be listened to or posted into, as one sentence for the user; empty when it can be.
/// Asks the session, so it may be called before anything else.
std::string sessionInputObstacle();

} // namespace vexa::platform
