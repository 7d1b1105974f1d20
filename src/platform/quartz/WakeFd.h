// SPDX-License-Identifier: MIT
#pragma once

namespace vexa::quartz {

/// A descriptor that one thread waits on and any thread can make readable. Making one throws
/// std::system_error when the process has no descriptor left.
class WakeFd {
public:
    WakeFd();
    ~WakeFd();
    WakeFd(const WakeFd &) = delete;
    WakeFd &operator=(const WakeFd &) = delete;

    int fd() const { return m_fd; }
    void wake() const;
    void clear() const;

private:
    int m_fd;
};

} // namespace vexa::quartz
