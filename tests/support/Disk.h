// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

/// Disks and users that cannot do everything.
namespace vexa::test::disk {

/// For its life, files of this process grow to so many bytes only, as on a disk without more space.
class Full {
public:
    explicit Full(int bytes) {
        m_signalBefore = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = static_cast<rlim_t>(bytes);
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~Full() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signalBefore);
    }

    Full(const Full &) = delete;
    Full &operator=(const Full &) = delete;

private:
    rlimit m_before{};
    void (*m_signalBefore)(int);
};

/// No permission stops root: for its life this makes the process an ordinary user's.
class OrdinaryUser {
public:
    OrdinaryUser() {
        // The real one too, by which the toolkit judges what may be written.
        if (m_root && (setreuid(nobody, 0) != 0 || seteuid(nobody) != 0))
            qFatal("cannot become an ordinary user");
    }
    ~OrdinaryUser() {
        if (m_root && (seteuid(0) != 0 || setreuid(0, 0) != 0))
            qFatal("cannot become root again");
    }

    OrdinaryUser(const OrdinaryUser &) = delete;
    OrdinaryUser &operator=(const OrdinaryUser &) = delete;

private:
    static constexpr uid_t nobody = 65534;
    const bool m_root = geteuid() == 0;
};

} // namespace vexa::test::disk
