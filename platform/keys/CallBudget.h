#pragma once

#include <QDeadlineTimer>
#include <QElapsedTimer>

#include <chrono>
#include <optional>

namespace glimmet {

/// How long calls may keep their caller waiting: the calls of the start-up share one budget, which only the
/// time within calls uses up; each later call has a budget of its own.
class CallBudget {
public:
    /// One call, from its construction to its end.
    class Call {
    public:
        explicit Call(CallBudget &budget)
            : m_budget(budget)
            , m_time(budget.m_startUp.value_or(budget.m_later))
            , m_deadline(m_time)
        {
            m_elapsed.start();
        }
        ~Call() { m_budget.take(std::chrono::nanoseconds(m_elapsed.nsecsElapsed())); }
        Q_DISABLE_COPY_MOVE(Call)

        /// What is left, rounded up; 0 when there is nothing left.
        std::chrono::milliseconds remaining() const
        {
            return std::chrono::ceil<std::chrono::milliseconds>(m_deadline.remainingTimeAsDuration());
        }
        /// Whether hardly anything is left: timers of D-Bus end a wait up to a tenth early.
        bool hasExpired() const { return m_deadline.remainingTimeAsDuration() <= m_time / 10; }

    private:
        CallBudget &m_budget;
        std::chrono::nanoseconds m_time;
        QDeadlineTimer m_deadline;
        QElapsedTimer m_elapsed;
    };

    CallBudget(std::chrono::nanoseconds startUp, std::chrono::nanoseconds later)
        : m_startUp(startUp)
        , m_later(later)
    {
    }

    void endStartUp() { m_startUp.reset(); }

private:
    void take(std::chrono::nanoseconds time)
    {
        if (m_startUp)
            m_startUp = std::max(*m_startUp - time, std::chrono::nanoseconds::zero());
    }

    std::optional<std::chrono::nanoseconds> m_startUp; ///< what is left of it; none once it is over
    std::chrono::nanoseconds m_later;
};

} // namespace glimmet
