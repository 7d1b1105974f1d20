// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vexa::x11 {

class Connection;

// Left-handed users exchange the buttons of the session's pointer: programs are given other buttons than the
// devices press. What is recorded and what is faked are the devices' buttons. Both functions ask the server,
// and take each button for what it is when that does not answer.

/// What programs are given for the button. 0: nothing.
std::uint8_t meaningOfButton(const Connection &connection, std::uint8_t button);

/// The button that must be pressed for programs to be given the first; the first itself when none means it.
std::uint8_t buttonThatMeansFirst(const Connection &connection);

} // namespace vexa::x11
