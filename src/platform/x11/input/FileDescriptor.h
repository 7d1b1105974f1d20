// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

namespace vexa::x11 {

/// Owns a file descriptor.
class FileDescriptor {
public:
    explicit FileDescriptor(int fd) : m_fd(fd) {}
    ~FileDescriptor() {
        if (m_fd >= 0)
            close(m_fd);
    }
    FileDescriptor(const FileDescriptor &) = delete;
    FileDescriptor &operator=(const FileDescriptor &) = delete;

    int get() const { return m_fd; }
    bool isValid() const { return m_fd >= 0; }

private:
    const int m_fd;
};

} // namespace vexa::x11
