#pragma once

#include "platform/SingleShot.h"

#include <QtGlobal>

#include <array>
#include <chrono>
#include <functional>

namespace glimmet {

/// The moments at which what found no network is tried again: 5, 15 and 45 seconds after the start. Main
/// thread.
class Retries {
public:
    /// `timers` outlives it. `tryAgain` may destroy it.
    Retries(Timers &timers, std::function<void()> tryAgain)
        : m_tryAgain(std::move(tryAgain))
        , m_timer(timers, waits.front(), [this] { goOn(); })
    {
    }

    /// Begins anew where it runs already.
    void start()
    {
        m_wait = 0;
        wait();
    }
    void stop() { m_timer.stop(); }
    /// Whether a moment is still to come.
    bool areAhead() const { return m_timer.isRunning(); }

private:
    void wait()
    {
        m_timer.setDelay(waits.at(m_wait));
        m_timer.start();
    }
    void goOn()
    {
        if (++m_wait < waits.size())
            wait();
        const auto tryAgain = m_tryAgain; // The call may destroy this.
        tryAgain();
    }

    static constexpr std::array waits{ std::chrono::seconds(5), std::chrono::seconds(10),
        std::chrono::seconds(30) };
    std::function<void()> m_tryAgain;
    std::size_t m_wait = 0;
    SingleShot m_timer;
};

/// How the latest of several requests for one thing went; those before it no longer count.
class LatestRequest {
public:
    /// Another one is under way. Returns its number.
    qint64 begin()
    {
        m_lackedNetwork = false;
        return ++m_number;
    }
    void end(qint64 number, bool lackedNetwork)
    {
        if (isLatest(number))
            m_lackedNetwork = lackedNetwork;
    }
    bool isLatest(qint64 number) const { return number == m_number; }
    /// Whether it is over, and failed for want of a network.
    bool lackedNetwork() const { return m_lackedNetwork; }

private:
    qint64 m_number = 0;
    bool m_lackedNetwork = false;
};

} // namespace glimmet
