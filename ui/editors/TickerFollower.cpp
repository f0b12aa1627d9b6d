#include "ui/editors/TickerFollower.h"

#include <utility>

namespace glimmet {

void TickerFollower::setTicker(TickerViewModel *ticker)
{
    if (m_ticker == ticker)
        return;
    if (m_ticker)
        m_ticker->disconnect(this);
    m_ticker = ticker;
    if (m_ticker)
        watch(*m_ticker);
    emit tickerChanged();
    follow();
}

void TickerFollower::watchDay(TickerViewModel &ticker)
{
    m_day = UsersDay::of(ticker);
    connect(&ticker, &TickerViewModel::ticked, this, &TickerFollower::followDay);
}

void TickerFollower::followDay()
{
    const UsersDay before = std::exchange(m_day, UsersDay::of(*m_ticker));
    if (m_day != before)
        follow();
}

} // namespace glimmet
