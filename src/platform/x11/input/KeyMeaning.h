// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/input/KeyTable.h"

namespace vexa::x11 {

class Connection;

/// The key to post so that programs get this virtual key. They go by what a key means, and a user may have
/// given the keys other meanings: escape and caps lock change places for many. It is the key of that position
/// unless that means something else and another key means it. 0 when there is none.
XKeyCode keyThatMeans(const Connection &connection, int virtualKey);

} // namespace vexa::x11
