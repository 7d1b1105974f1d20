// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

/// The time that goes by as a test says. For one source file of a test program: it takes the place of the
/// system's function, in the toolkit too, whose timers then wait for advance().
namespace vexa::test {

class GivenClock {
public:
    static void advance(int milliseconds) { now() += milliseconds * 1'000'000LL; }

    /// In nanoseconds; begins with the system's.
    static std::atomic<long long> &now() {
        static std::atomic<long long> time{atFirst()};
        return time;
    }

private:
    static long long atFirst() {
        timespec real{};
        syscall(SYS_clock_gettime, CLOCK_MONOTONIC, &real);
        return real.tv_sec * 1'000'000'000LL + real.tv_nsec;
    }
};

} // namespace vexa::test

extern "C" inline int clock_gettime_given(clockid_t clock, timespec *result) {
    if (clock != CLOCK_MONOTONIC)
        return static_cast<int>(syscall(SYS_clock_gettime, clock, result));
    const long long now = vexa::test::GivenClock::now();
    *result = {now / 1'000'000'000LL, now % 1'000'000'000LL};
    return 0;
}

#define VEXA_GIVEN_CLOCK                                                                                     \
    extern "C" int clock_gettime(clockid_t clock, timespec *result) noexcept {                               \
        return clock_gettime_given(clock, result);                                                           \
    }
