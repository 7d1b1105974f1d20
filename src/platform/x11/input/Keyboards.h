// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/input/KeyTable.h"

#include <array>
#include <cstdint>
#include <vector>

namespace vexa::x11 {

class Connection;

/// A set of keys, by X key code.
class KeySet {
public:
    bool has(XKeyCode key) const { return (m_bits[key / 8] >> (key % 8)) & 1; }
    void add(const std::uint8_t (&bits)[32]) {
        for (std::size_t i = 0; i < m_bits.size(); ++i)
            m_bits[i] = static_cast<std::uint8_t>(m_bits[i] | bits[i]);
    }
    void add(const KeySet &others) {
        for (std::size_t i = 0; i < m_bits.size(); ++i)
            m_bits[i] = static_cast<std::uint8_t>(m_bits[i] | others.m_bits[i]);
    }

private:
    std::array<std::uint8_t, 32> m_bits{};
};

/// The session's keyboards, by the server's device ids, without the device through which clients fake keys.
std::vector<std::uint8_t> realKeyboards(const Connection &connection);

/// The keys that are down for the session, on any device of its first master keyboard. Empty when the server
/// does not answer.
KeySet keysDown(const Connection &connection);

/// Which keys are held on which kind of device, also those that a faked release has lifted for the session.
/// Where the server does not tell one device from another, all keys that are down count as faked.
struct Holders {
    KeySet keyboards; ///< real devices
    KeySet programs;  ///< the device through which clients fake keys
};
Holders holdersOfKeys(const Connection &connection);

} // namespace vexa::x11
