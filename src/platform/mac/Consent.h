// SPDX-License-Identifier: MIT
#pragma once

namespace vexa::platform {

/// Calls the function of Core Graphics that knows, or asks the user, whether something is allowed in the
/// privacy settings: CGPreflightListenEventAccess looks, CGRequestListenEventAccess asks and puts the program
/// on the list there; the likes of them for posting (CGPreflightPostEventAccess) and for capturing. None
/// waits for the user: what is returned is the answer known so far. True on systems before 10.15, which have
/// no such function and nothing to allow. Any thread.
bool isAllowed(const char *question);

} // namespace vexa::platform
