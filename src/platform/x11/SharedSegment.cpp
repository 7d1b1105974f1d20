// SPDX-License-Identifier: MIT
#include "platform/x11/SharedSegment.h"

#include "platform/x11/input/Connection.h"

#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <xcb/shm.h>
#include <xcb/xcb.h>

namespace vexa::platform {
namespace {

/// A forwarded display says that it shares memory as well, but it is another machine's.
bool isOnThisMachine(xcb_connection_t *connection) {
    sockaddr_storage peer{};
    socklen_t size = sizeof peer;
    return getpeername(xcb_get_file_descriptor(connection), reinterpret_cast<sockaddr *>(&peer), &size) ==
               0 &&
           peer.ss_family == AF_UNIX;
}

/// Growing a file past this limit is a signal that ends the program, also where the file is memory.
bool isFileOfThisSizeAllowed(std::size_t bytes) {
    rlimit limit{};
    return getrlimit(RLIMIT_FSIZE, &limit) == 0 && bytes <= limit.rlim_cur;
}

/// A descriptor of so many bytes of memory, or -1.
int memoryOf(std::size_t bytes) {
    if (!isFileOfThisSizeAllowed(bytes))
        return -1;
    const int memory = memfd_create("screen-picture", MFD_CLOEXEC);
    if (memory != -1 && posix_fallocate(memory, 0, static_cast<off_t>(bytes)) != 0) {
        close(memory);
        return -1;
    }
    return memory;
}

} // namespace

bool SharedSegment::isSupported(xcb_connection_t *connection) {
    if (xcb_connection_has_error(connection) || !isOnThisMachine(connection))
        return false;
    const xcb_query_extension_reply_t *extension = xcb_get_extension_data(connection, &xcb_shm_id);
    if (!extension || !extension->present)
        return false;
    const x11::Reply<xcb_shm_query_version_reply_t> version(
        xcb_shm_query_version_reply(connection, xcb_shm_query_version(connection), nullptr));
    // Since 1.2 the memory is handed over as a descriptor, and no third program can reach it.
    return version && (version->major_version > 1 || version->minor_version >= 2);
}

std::unique_ptr<SharedSegment> SharedSegment::create(xcb_connection_t *connection, std::size_t bytes) {
    const int memory = memoryOf(bytes);
    if (memory == -1)
        return nullptr;
    void *data = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_POPULATE, memory, 0);
    if (data == MAP_FAILED) {
        close(memory);
        return nullptr;
    }
    std::unique_ptr<SharedSegment> segment(
        new SharedSegment(static_cast<uchar *>(data), bytes, xcb_generate_id(connection)));
    // Takes the descriptor over.
    const auto attached = xcb_shm_attach_fd_checked(connection, segment->id(), memory, 0);
    const x11::Reply<xcb_generic_error_t> refused(xcb_request_check(connection, attached));
    return refused ? nullptr : std::move(segment);
}

SharedSegment::~SharedSegment() {
    munmap(m_data, m_bytes);
}

} // namespace vexa::platform
