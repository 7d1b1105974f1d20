// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>

/// What each program here defines: takes any bytes and aborts when the product does not keep its word. The
/// fuzzer calls it again and again with what it makes up; in the suite Replay.cpp calls it with what the
/// fuzzer has found worth keeping.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

/// Called once before.
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);

namespace fuzz {

/// Ends the program like a crash, which the fuzzer takes for one.
inline void require(bool kept) {
    if (!kept)
        std::abort();
}

/// Deals the bytes out; zeros when there are none left.
class Bytes {
public:
    Bytes(const std::uint8_t *data, std::size_t size) : m_next(data), m_end(data + size) {}

    bool atEnd() const { return m_next == m_end; }
    std::uint8_t byte() { return atEnd() ? std::uint8_t{0} : *m_next++; }
    /// One of 0 to count - 1.
    int below(int count) { return byte() % count; }
    int number() {
        unsigned value = 0;
        for (int i = 0; i < 4; ++i)
            value = (value << 8U) | byte();
        return static_cast<int>(value);
    }

private:
    const std::uint8_t *m_next, *m_end;
};

} // namespace fuzz
