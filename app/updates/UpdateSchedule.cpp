#include "app/updates/UpdateSchedule.h"

#include "platform/Clock.h"

#include <chrono>
#include <utility>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds quietTime = 1min;
constexpr std::chrono::milliseconds lookingTime = 1h;
/// A little less than a day: the clock is set, and a look comes only every hour.
constexpr double day = 24 * 3600 - 60;

/// A clock that was set back would else put it off for as long.
bool isDayApart(Instant before, Instant now)
{
    const double elapsed = now.secondsSince2001 - before.secondsSince2001;
    return elapsed < 0 || elapsed >= day;
}

} // namespace

UpdateSchedule::UpdateSchedule(Timers &timers, const Clock &clock, std::function<void()> due)
    : m_timers(timers)
    , m_clock(clock)
    , m_due(std::move(due))
{
}

void UpdateSchedule::start()
{
    m_timer = m_timers.repeating(quietTime, [this] { begin(); });
}

void UpdateSchedule::begin()
{
    m_timer = m_timers.repeating(lookingTime, [this] { look(); });
    fire();
}

void UpdateSchedule::look()
{
    if (!m_lastFired || isDayApart(*m_lastFired, m_clock.now()))
        fire();
}

void UpdateSchedule::fire()
{
    m_lastFired = m_clock.now();
    m_due();
}

} // namespace glimmet
