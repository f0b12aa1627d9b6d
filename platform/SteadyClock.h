#pragma once

#include <chrono>
#include <optional>

namespace glimmet {

/// Tells how time passes, whatever the system's clock is set to. Any thread.
class SteadyClock {
public:
    virtual ~SteadyClock() = default;
    /// The time since a moment that stays the same.
    virtual std::chrono::nanoseconds elapsed() const = 0;
};

/// The system's monotonic clock.
class SystemSteadyClock final : public SteadyClock {
public:
    std::chrono::nanoseconds elapsed() const override
    {
        return std::chrono::steady_clock::now().time_since_epoch();
    }
};

/// Remembers when something happened. Until it is started, that was long ago.
class Stopwatch {
public:
    /// `clock` outlives it.
    explicit Stopwatch(const SteadyClock &clock)
        : m_clock(clock)
    {
    }

    /// It happens now.
    void start() { m_start = m_clock.elapsed(); }
    void reset() { m_start.reset(); }
    /// Whether it was longer ago than `time`.
    bool hasPassed(std::chrono::nanoseconds time) const
    {
        return !m_start || m_clock.elapsed() - *m_start > time;
    }

private:
    const SteadyClock &m_clock;
    std::optional<std::chrono::nanoseconds> m_start;
};

} // namespace glimmet
