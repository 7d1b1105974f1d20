// SPDX-License-Identifier: MIT
#include "platform/x11/DescriptorLimit.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <sys/resource.h>

namespace vexa::platform {

namespace {

/// 25 are open in a session with everything, a few more for a moment.
constexpr rlim_t enough = 32;

} // namespace

void claimDescriptors() {
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= enough)
        return;
    limit.rlim_cur = std::min(enough, limit.rlim_max);
    if (limit.rlim_cur < enough || setrlimit(RLIMIT_NOFILE, &limit) != 0)
        throw std::runtime_error("needs " + std::to_string(enough) + " open files, of which it may have " +
                                 std::to_string(limit.rlim_max) + " (ulimit -n)");
}

} // namespace vexa::platform
