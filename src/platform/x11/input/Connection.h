// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>

struct xcb_connection_t;
struct xcb_extension_t;

namespace vexa::x11 {

struct FreeReply {
    void operator()(void *reply) const { std::free(reply); }
};

/// What the server answered; null when the request failed.
template<typename T> using Reply = std::unique_ptr<T, FreeReply>;

/// A connection of our own to the X server that DISPLAY names, apart from the toolkit's. One thread at a
/// time. When it breaks it stays broken: requests are dropped, and what waits for an answer returns at once.
/// The process must ignore SIGPIPE, which a write to a server that goes in that moment raises.
class Connection {
public:
    /// Null when the server cannot be reached.
    static std::unique_ptr<Connection> open();

    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    xcb_connection_t *get() const { return m_connection; }
    int fd() const;
    bool isBroken() const;
    /// The root window of the server's first screen.
    std::uint32_t root() const;

    /// Bits of a pixel that tell its colour, on that screen.
    int colourDepth() const;

    /// The bits by which the server tells this client's things from others'.
    std::uint32_t clientId() const;

    /// Whether the server has the extension. The first call for each asks it; false when the connection
    /// broke.
    bool has(xcb_extension_t &extension) const;

    /// Waits for what the server made of a checked request, by its sequence number. False when it refused.
    bool succeeds(unsigned checkedRequest) const;

    /// Returns when the server has done all that was asked. False when the connection broke or it refused
    /// something since the last time.
    bool sync();

    /// Throws away events that have arrived. True when one was a refusal.
    bool dropEvents();

private:
    explicit Connection(xcb_connection_t *connection) : m_connection(connection) {}

    xcb_connection_t *const m_connection;
};

} // namespace vexa::x11
