// SPDX-License-Identifier: MIT
#pragma once

#include <CoreGraphics/CoreGraphics.h>

namespace vexa::platform {

/// The rectangle (points) of a display as an image that the caller releases. Null when there is nothing to
/// see, or when the running system has no such call any more: newer development kits refuse to compile it, so
/// it is looked up at run time and nowhere else.
CGImageRef createDisplayImage(CGDirectDisplayID display, CGRect rect);

} // namespace vexa::platform
