#pragma once

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
};

/// Timers of the Qt event loop, precise to the millisecond and free of drift.
class EventLoopTimers final : public Timers {
public:
    std::unique_ptr<RepeatingTimer> repeating(
        std::chrono::milliseconds interval, std::function<void()> fired) override;
};

} // namespace glimmet
