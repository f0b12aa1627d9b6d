#pragma once

#include "platform/Instant.h"
#include "platform/RepeatingTimer.h"

#include <functional>
#include <memory>
#include <optional>

namespace glimmet {

class Clock;

/// Says when it is time to look for updates by itself: after a quiet minute, then daily. A day counts by the
/// clock, looked at every hour, since the timers of a computer that sleeps stand still. Main thread.
class UpdateSchedule {
public:
    /// `timers` and `clock` outlive it.
    UpdateSchedule(Timers &timers, const Clock &clock, std::function<void()> due);
    Q_DISABLE_COPY_MOVE(UpdateSchedule)

    void start();
    /// What was due has failed: it is due again in an hour, daily only once it got through.
    void tryAgain() { m_lastFired.reset(); }

private:
    void begin();
    void look();
    void fire();

    Timers &m_timers;
    const Clock &m_clock;
    std::function<void()> m_due;
    std::optional<Instant> m_lastFired; ///< nothing: never, or in vain
    std::unique_ptr<RepeatingTimer> m_timer;
};

} // namespace glimmet
