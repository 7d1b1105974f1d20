// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

/// What no program on this machine and screen can go below, measured with as little around it as possible.
/// Milliseconds, one for each of some rounds. Need an application object on the X display.
namespace bench {

/// The toolkit fetches the whole screen.
std::vector<double> captures(int rounds);

/// A key goes into the server and comes back as a record.
std::vector<double> roundTrips(int rounds);

/// A window of the screen's size is painted with a picture and is on the screen.
std::vector<double> repaints(int rounds);

} // namespace bench
