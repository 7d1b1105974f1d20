// SPDX-License-Identifier: MIT
#pragma once

#include "platform/quartz/CoreFoundation.h"

#include <string>

namespace vexa::quartz {

/// The text of a constant string.
const std::string &textOf(CFStringRef string);

} // namespace vexa::quartz
