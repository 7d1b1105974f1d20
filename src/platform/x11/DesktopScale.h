// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ScreenPlace.h"

#include <QByteArray>

namespace vexa::platform {

/// The scale factor, in steps of a quarter, for a desktop whose settings give this resolution: 96 dots per
/// inch are 1. Also 1 when the text is no plausible resolution. Never so large that the settings panel does
/// not fit on a screen of that size.
double scaleFor(const QByteArray &dotsPerInch, Pixels screen);

/// The same for the session that DISPLAY names, before the toolkit has looked at it.
double desktopScale();

} // namespace vexa::platform
