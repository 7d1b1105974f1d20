// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/mac/MessageSend.h"

#include <objc/objc.h>

/// In the place of the runtime's entry point: cast to a function type and called, as the real one is.
inline constexpr fakes::MessageSend objc_msgSend;
