// SPDX-License-Identifier: MIT
#pragma once

/// The one way in which this program sees the Core Foundation and Core Graphics names: the system's own where
/// there are any, elsewhere the same names, types and values in portable C++.
#ifdef __APPLE__
#include <ApplicationServices/ApplicationServices.h>
#else
#include "platform/quartz/CoreFoundation.h"
#include "platform/quartz/CoreGraphics.h"
#endif
