#pragma once

#include "platform/RepeatingTimer.h"

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

namespace glimmet {

/// Calls once, a while after it was last started, unless it was stopped by then. Main thread.
class SingleShot {
public:
    /// `timers` outlives it. `fired` may destroy it.
    SingleShot(Timers &timers, std::chrono::milliseconds delay, std::function<void()> fired)
        : m_timers(timers)
        , m_delay(delay)
        , m_fired(std::move(fired))
    {
    }

    /// Begins anew where it runs already.
    void start()
    {
        m_timer.reset();
        m_timer = m_timers.repeating(m_delay, [this] { fire(); });
    }
    void stop() { m_timer.reset(); }
    /// From the next start on.
    void setDelay(std::chrono::milliseconds delay) { m_delay = delay; }
    std::chrono::milliseconds delay() const { return m_delay; }
    bool isRunning() const { return m_timer != nullptr; }

private:
    void fire()
    {
        m_timer.reset();
        const auto fired = m_fired; // The call may destroy this.
        fired();
    }

    Timers &m_timers;
    std::chrono::milliseconds m_delay;
    std::function<void()> m_fired;
    std::unique_ptr<RepeatingTimer> m_timer;
};

} // namespace glimmet
