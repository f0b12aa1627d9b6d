#include "tests/support/ManualTimers.h"

#include <algorithm>

namespace glimmet {

class ManualTimers::Timer final : public RepeatingTimer {
public:
    explicit Timer(ManualTimers &timers)
        : m_timers(timers)
    {
    }
    ~Timer() override { m_timers.remove(this); }
    Q_DISABLE_COPY_MOVE(Timer)

private:
    ManualTimers &m_timers;
};

ManualTimers::ManualTimers()
    : m_clock(m_ownClock)
{
}

ManualTimers::ManualTimers(ManualClock &clock)
    : m_clock(clock)
{
}

std::unique_ptr<RepeatingTimer> ManualTimers::repeating(
    std::chrono::milliseconds interval, std::function<void()> fired)
{
    auto timer = std::make_unique<Timer>(*this);
    m_entries.push_back({ timer.get(), interval, m_elapsed + interval, std::move(fired) });
    return timer;
}

std::unique_ptr<RepeatingTimer> ManualTimers::everySecond(std::function<void()> fired)
{
    return repeating(std::chrono::seconds(1), std::move(fired));
}

void ManualTimers::advance(std::chrono::milliseconds duration)
{
    const auto end = m_elapsed + duration;
    while (true) {
        const auto next = std::min_element(
            m_entries.begin(), m_entries.end(), [](const Entry &a, const Entry &b) { return a.due < b.due; });
        if (next == m_entries.end() || next->due > end)
            break;
        moveTo(next->due);
        next->due += next->interval;
        const auto fired = next->fired; // The call may destroy its timer, and the entry with it.
        fired();
    }
    moveTo(end);
}

std::vector<std::chrono::milliseconds> ManualTimers::running() const
{
    std::vector<std::chrono::milliseconds> intervals;
    for (const Entry &entry : m_entries)
        intervals.push_back(entry.interval);
    return intervals;
}

void ManualTimers::moveTo(std::chrono::milliseconds moment)
{
    m_clock.pass(moment - m_elapsed);
    m_elapsed = moment;
}

void ManualTimers::remove(Timer *timer)
{
    std::erase_if(m_entries, [timer](const Entry &entry) { return entry.timer == timer; });
}

} // namespace glimmet
