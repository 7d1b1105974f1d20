// SPDX-License-Identifier: MIT
#include "platform/ProgramIcon.h"

namespace vexa::platform {

QIcon programIcon() {
    return {};
}

} // namespace vexa::platform
