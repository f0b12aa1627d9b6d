#pragma once

#include "platform/Clock.h"

#include <chrono>
#include <functional>
#include <memory>

namespace glimmet {

/// A running timer on the main event loop; destroying it invalidates it.
class RepeatingTimer {
public:
    virtual ~RepeatingTimer() = default;
};

/// Makes repeating timers.
class Timers {
public:
    virtual ~Timers() = default;
    /// Calls `fired` on the main thread every `interval`, the first time one interval from now, until the
    /// returned timer is destroyed. `fired` may destroy the timer.
    virtual std::unique_ptr<RepeatingTimer> repeating(
        std::chrono::milliseconds interval, std::function<void()> fired) = 0;
    /// Calls `fired` on the main thread once for each second of the wall clock, just after it has begun,
    /// until the returned timer is destroyed. `fired` may destroy the timer, which these timers outlive.
    virtual std::unique_ptr<RepeatingTimer> everySecond(std::function<void()> fired) = 0;
};

/// Timers of the Qt event loop, precise to the millisecond and free of drift. Seconds are those of the
/// system's clock.
class EventLoopTimers final : public Timers {
public:
    std::unique_ptr<RepeatingTimer> repeating(
        std::chrono::milliseconds interval, std::function<void()> fired) override;
    std::unique_ptr<RepeatingTimer> everySecond(std::function<void()> fired) override;

private:
    SystemClock m_clock;
};

} // namespace glimmet
