#pragma once

#include "platform/SteadyClock.h"

#include <QtGlobal>

#include <algorithm>
#include <chrono>
#include <optional>

namespace glimmet {

/// How long calls may keep their caller waiting. A call is made of several questions.
struct CallLimits {
    std::chrono::nanoseconds startUp; ///< all calls of the start-up together
    std::chrono::nanoseconds later; ///< each later call
    std::chrono::nanoseconds question; ///< each question within a call
};

/// What is left of that: the calls of the start-up share one budget, which only the time within calls uses
/// up; each later call has a budget of its own.
class CallBudget {
public:
    /// One call, from its construction to its end.
    class Call {
    public:
        explicit Call(CallBudget &budget)
            : m_budget(budget)
            , m_time(budget.m_startUp.value_or(budget.m_later))
            , m_start(budget.m_clock.elapsed())
        {
        }
        ~Call() { m_budget.take(elapsed()); }
        Q_DISABLE_COPY_MOVE(Call)

        /// How long the next question may take, rounded up; 0 when there is nothing left.
        std::chrono::milliseconds patience() const { return rounded(remainder()); }
        /// The same, but at least half of what is left stays for what follows.
        std::chrono::milliseconds share() const { return rounded(remainder() / 2); }

        /// A question of the call got no answer while it was waited for.
        void noteSilence() { m_wasUnanswered = true; }
        bool wasUnanswered() const { return m_wasUnanswered; }

    private:
        std::chrono::milliseconds rounded(std::chrono::nanoseconds time) const
        {
            return std::chrono::ceil<std::chrono::milliseconds>(std::min(time, m_budget.m_question));
        }
        std::chrono::nanoseconds elapsed() const { return m_budget.m_clock.elapsed() - m_start; }
        std::chrono::nanoseconds remainder() const
        {
            return std::max(m_time - elapsed(), std::chrono::nanoseconds::zero());
        }

        CallBudget &m_budget;
        std::chrono::nanoseconds m_time;
        std::chrono::nanoseconds m_start;
        bool m_wasUnanswered = false;
    };

    /// `clock` outlives it.
    CallBudget(const SteadyClock &clock, CallLimits limits)
        : m_clock(clock)
        , m_startUp(limits.startUp)
        , m_later(limits.later)
        , m_question(limits.question)
    {
    }

    void endStartUp() { m_startUp.reset(); }

private:
    void take(std::chrono::nanoseconds time)
    {
        if (m_startUp)
            m_startUp = std::max(*m_startUp - time, std::chrono::nanoseconds::zero());
    }

    const SteadyClock &m_clock;
    std::optional<std::chrono::nanoseconds> m_startUp; ///< what is left of it; none once it is over
    std::chrono::nanoseconds m_later;
    std::chrono::nanoseconds m_question;
};

} // namespace glimmet
