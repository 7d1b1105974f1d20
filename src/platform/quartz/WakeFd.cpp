// SPDX-License-Identifier: MIT
#include "platform/quartz/WakeFd.h"

#include <cerrno>
#include <cstdint>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>

namespace vexa::quartz {

WakeFd::WakeFd() : m_fd(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (m_fd < 0)
        throw std::system_error(errno, std::generic_category(), "eventfd");
}

WakeFd::~WakeFd() {
    close(m_fd);
}

void WakeFd::wake() const {
    const std::uint64_t one = 1;
    // The only refusal is a full counter, and then the descriptor is readable already.
    [[maybe_unused]] const ssize_t written = write(m_fd, &one, sizeof one);
}

void WakeFd::clear() const {
    std::uint64_t count = 0;
    [[maybe_unused]] const ssize_t taken = read(m_fd, &count, sizeof count);
}

} // namespace vexa::quartz
