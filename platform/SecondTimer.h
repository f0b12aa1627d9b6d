#pragma once

#include "platform/Instant.h"
#include "platform/SingleShot.h"

#include <chrono>
#include <functional>

namespace glimmet {

class Clock;

/// Ticks fall just behind a full second, where no clock that is read still shows the second before: between
/// the earliest and whatever the event loop adds to what is aimed at.
inline constexpr std::chrono::milliseconds earliestTick{ 2 };
inline constexpr std::chrono::milliseconds aimedTick{ 5 };

/// The first full second after `now`.
Instant nextFullSecond(Instant now);
/// Whether it is time at `now` for the tick of the full second `second`, or later.
bool isTickDue(Instant second, Instant now);
/// How long it is from `now`, before that tick or at most a tick late, to where the tick is aimed at.
std::chrono::milliseconds untilTick(Instant second, Instant now);

/// Calls behind each full second of a clock, the first time up to a second from now. A call that comes late
/// is followed by that of the next full second; where the clock was set back or runs slow, the timer that
/// comes too early calls nobody and waits on. Main thread.
class SecondTimer final : public RepeatingTimer {
public:
    /// `timers` and `clock` outlive it. `fired` may destroy it.
    SecondTimer(Timers &timers, const Clock &clock, std::function<void()> fired);

private:
    void wait(Instant now);
    void wake();

    const Clock &m_clock;
    std::function<void()> m_fired;
    Instant m_second; ///< the one whose tick comes next
    SingleShot m_timer;
};

} // namespace glimmet
