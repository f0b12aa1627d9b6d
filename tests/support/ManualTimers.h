#pragma once

#include "platform/RepeatingTimer.h"
#include "tests/support/ManualClock.h"

#include <vector>

namespace glimmet {

/// Timers that fire while time is moved by hand, in the order in which they fall due (those of the same
/// moment in the order of their making). The clock moves along.
class ManualTimers final : public Timers {
public:
    /// With a clock of their own that the test does not look at.
    ManualTimers();
    explicit ManualTimers(ManualClock &clock);
    Q_DISABLE_COPY_MOVE(ManualTimers)

    std::unique_ptr<RepeatingTimer> repeating(
        std::chrono::milliseconds interval, std::function<void()> fired) override;
    /// Each second that passes from now on, wherever the clock is within its own.
    std::unique_ptr<RepeatingTimer> everySecond(std::function<void()> fired) override;

    void advance(std::chrono::milliseconds duration);
    /// The intervals of the timers that run, in the order of their making.
    std::vector<std::chrono::milliseconds> running() const;

private:
    class Timer;
    struct Entry {
        Timer *timer;
        std::chrono::milliseconds interval;
        std::chrono::milliseconds due;
        std::function<void()> fired;
    };

    void moveTo(std::chrono::milliseconds moment);
    void remove(Timer *timer);

    ManualClock m_ownClock;
    ManualClock &m_clock;
    std::chrono::milliseconds m_elapsed{ 0 };
    std::vector<Entry> m_entries;
};

} // namespace glimmet
