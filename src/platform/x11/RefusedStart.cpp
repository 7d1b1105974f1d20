// SPDX-License-Identifier: MIT
#include "platform/RefusedStart.h"

namespace vexa::platform {

// The last line on stderr reaches the terminal, or the log of the session that started the program.
void showRefusedStart(RefusalWords (*)()) {}

} // namespace vexa::platform
