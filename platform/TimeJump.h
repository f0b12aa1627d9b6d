#pragma once

#include "platform/Instant.h"

#include <chrono>

namespace glimmet {

/// What the clocks say at one moment.
struct ClockReadings {
    Instant wall;
    std::chrono::nanoseconds steady{ 0 }; ///< stands still in sleep, and is never set
    std::chrono::milliseconds asleep{ 0 }; ///< how long the machine has slept
};

/// Whether, between two readings, the machine slept (for a second at least) or the wall clock was set by more
/// than half a minute. Slewing, which takes hours for as much, is no setting.
bool hasTimeJumped(const ClockReadings &before, const ClockReadings &after);

} // namespace glimmet
