#pragma once

#include "platform/Clock.h"
#include "platform/SteadyClock.h"

namespace glimmet {

/// A clock that stands still until it is moved.
class ManualClock final : public Clock, public SteadyClock {
public:
    Instant now() const override { return m_now; }
    std::chrono::nanoseconds elapsed() const override { return m_elapsed; }

    /// Lets time pass.
    void pass(std::chrono::nanoseconds time)
    {
        m_elapsed += time;
        advance(std::chrono::duration<double>(time).count());
    }
    /// Moves the time of day alone, as the user does, or a computer that slept.
    void set(Instant moment) { m_now = moment; }
    void advance(double seconds) { m_now = m_now.advanced(seconds); }

private:
    Instant m_now;
    std::chrono::nanoseconds m_elapsed{ 0 };
};

} // namespace glimmet
