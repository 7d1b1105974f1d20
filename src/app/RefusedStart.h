// SPDX-License-Identifier: MIT
#pragma once

#include "platform/RefusedStart.h"

namespace vexa {

/// The texts for a user whose system does not let the program listen. They are those of the privacy guide, in
/// the user's language, because such a start ends before the guide is shown. Reads the settings. Needs the
/// application object; GUI thread.
platform::RefusalWords refusalWords();

} // namespace vexa
