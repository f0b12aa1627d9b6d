#pragma once

#include <chrono>
#include <ctime>

namespace glimmet {

/// How long the machine has slept (suspended) since it started: what its monotonic clock leaves out. Any
/// thread.
inline std::chrono::milliseconds timeAsleep()
{
    const auto read = [](clockid_t clock) {
        timespec time{};
        clock_gettime(clock, &time);
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    };
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        read(CLOCK_BOOTTIME) - read(CLOCK_MONOTONIC));
}

} // namespace glimmet
