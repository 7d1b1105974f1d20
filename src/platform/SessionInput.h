// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ScreenPlace.h"

#include <string>

/// The input of the session that the program runs in. Any thread.
namespace vexa::platform {

/// Makes the session the place where taps listen and posts go, until setInputBackend() says otherwise. Call
/// before the first tap. Its events are in points of the primary screen. On macOS the session is that place
/// already: there it asks the user for what listening and posting need, logs what is missing, and
/// has the system keep the program awake.
void useSessionInput(const ScreenPlace &primaryScreen);

/// The primary screen has become another one, or has changed.
void followPrimaryScreen(const ScreenPlace &primaryScreen);

/// Why the session cannot be listened to, posted into or drawn on, as one sentence for the user; empty when
/// it can be. Asks the session, so it may be called before anything else.
std::string sessionInputObstacle();

} // namespace vexa::platform
