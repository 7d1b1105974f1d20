// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/quartz/CoreFoundation.h"

namespace vexa::quartz {

/// The text of a constant string.
const std::string &textOf(CFStringRef string);

} // namespace vexa::quartz
