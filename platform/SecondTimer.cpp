#include "platform/SecondTimer.h"

#include "platform/Clock.h"

#include <algorithm>
#include <cmath>

namespace glimmet {
namespace {

using Seconds = std::chrono::duration<double>;

Seconds between(Instant earlier, Instant later)
{
    return Seconds(later.secondsSince2001 - earlier.secondsSince2001);
}

} // namespace

Instant nextFullSecond(Instant now)
{
    return { std::floor(now.secondsSince2001) + 1 };
}

bool isTickDue(Instant second, Instant now)
{
    return between(second, now) >= earliestTick;
}

std::chrono::milliseconds untilTick(Instant second, Instant now)
{
    return std::chrono::ceil<std::chrono::milliseconds>(between(now, second)) + aimedTick;
}

SecondTimer::SecondTimer(Timers &timers, const Clock &clock, std::function<void()> fired)
    : m_clock(clock)
    , m_fired(std::move(fired))
    , m_timer(timers, aimedTick, [this] { wake(); })
{
    const Instant now = m_clock.now();
    m_second = nextFullSecond(now);
    wait(now);
}

void SecondTimer::wait(Instant now)
{
    m_timer.setDelay(untilTick(m_second, now));
    m_timer.start();
}

void SecondTimer::wake()
{
    const Instant now = m_clock.now();
    const bool isDue = isTickDue(m_second, now);
    // A clock that was set back has its next full second before the one that was waited for.
    m_second = isDue ? nextFullSecond(now) : std::min(m_second, nextFullSecond(now));
    wait(now);
    if (!isDue)
        return;
    const auto fired = m_fired; // The call may destroy this.
    fired();
}

} // namespace glimmet
