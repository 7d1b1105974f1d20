// SPDX-License-Identifier: MIT
#pragma once

#include "Samples.h"

/// What no program on this machine and screen can go below, measured with as little around it as possible.
/// Need an application object on the X display.
namespace bench {

/// The toolkit fetches the whole screen.
Samples captures();

/// A key goes into the server and comes back as a record.
Samples roundTrips();

/// A window of the screen's size is painted with a picture and is on the screen.
Samples repaints();

} // namespace bench
