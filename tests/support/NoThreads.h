// SPDX-License-Identifier: MIT
#pragma once

#include "support/Disk.h"

#include <sys/resource.h>

namespace vexa::test {

/// For its life the system gives this process, then an ordinary user's, no further thread.
class NoThreads {
public:
    NoThreads() {
        getrlimit(RLIMIT_NPROC, &m_before);
        const rlimit thisOne{1, m_before.rlim_max};
        setrlimit(RLIMIT_NPROC, &thisOne);
    }
    ~NoThreads() { setrlimit(RLIMIT_NPROC, &m_before); }

    NoThreads(const NoThreads &) = delete;
    NoThreads &operator=(const NoThreads &) = delete;

private:
    const disk::OrdinaryUser m_user; // root may have as many as it likes
    rlimit m_before{};
};

} // namespace vexa::test
