// SPDX-License-Identifier: MIT
#pragma once

#include "platform/RefusedStart.h"

namespace vexa {

/// What to tell a user whose system does not let the program listen: in the words and the language of the
/// privacy guide, which such a start does not reach. Reads the settings. Needs the application object; GUI
/// thread.
platform::RefusalWords refusalWords();

} // namespace vexa
