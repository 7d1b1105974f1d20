// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <memory>

struct xcb_connection_t;

namespace vexa::platform {

/// Memory that this process shares with an X server on the same machine (MIT-SHM). The memory itself may be
/// read and written on any thread; what talks to the server belongs to the connection's.
class SharedSegment {
public:
    /// Whether the server at the other end can share memory with us at all.
    static bool isSupported(xcb_connection_t *connection);

    /// Null when there is no memory, or the server refuses. All pages are there at once: fetching them one by
    /// one at the first use takes longer, and without enough memory kills.
    static std::unique_ptr<SharedSegment> create(xcb_connection_t *connection, std::size_t bytes);

    ~SharedSegment();
    Q_DISABLE_COPY_MOVE(SharedSegment)

    uchar *data() const { return m_data; }
    std::size_t size() const { return m_bytes; }
    /// What the server knows it by; it forgets by itself when the connection ends.
    quint32 id() const { return m_id; }

private:
    SharedSegment(uchar *data, std::size_t bytes, quint32 id) : m_data(data), m_bytes(bytes), m_id(id) {}

    uchar *const m_data;
    const std::size_t m_bytes;
    const quint32 m_id;
};

} // namespace vexa::platform
