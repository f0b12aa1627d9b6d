#include "platform/RepeatingTimer.h"

#include "platform/SecondTimer.h"

#include <QTimer>

namespace glimmet {
namespace {

class EventLoopTimer final : public RepeatingTimer {
public:
    EventLoopTimer(std::chrono::milliseconds interval, std::function<void()> fired)
        : m_fired(std::move(fired))
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setInterval(interval);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            const auto copy = m_fired; // The callback may destroy this timer.
            copy();
        });
        m_timer.start();
    }

private:
    QTimer m_timer;
    std::function<void()> m_fired;
};

} // namespace

std::unique_ptr<RepeatingTimer> EventLoopTimers::repeating(
    std::chrono::milliseconds interval, std::function<void()> fired)
{
    return std::make_unique<EventLoopTimer>(interval, std::move(fired));
}

std::unique_ptr<RepeatingTimer> EventLoopTimers::everySecond(std::function<void()> fired)
{
    return std::make_unique<SecondTimer>(*this, m_clock, std::move(fired));
}

} // namespace glimmet
