// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ScreenPlace.h"

#include <QByteArray>

namespace vexa::platform {

/// How much larger than usual a desktop wants everything that says this of its resolution, in quarters: 1
/// where it gives no plausible value, and never so much that the settings panel would not fit on a
/// screen of so many pixels.
double scaleFor(const QByteArray &dotsPerInch, Pixels screen);

/// The same for the session that DISPLAY names, before the toolkit has looked at it.
double desktopScale();

} // namespace vexa::platform
