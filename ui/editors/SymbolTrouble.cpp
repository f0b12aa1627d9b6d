#include "ui/editors/SymbolTrouble.h"

#include "platform/Publish.h"
#include "ui/editors/PriceLabels.h"

namespace glimmet {

void SymbolTrouble::setTicker(TickerViewModel *ticker)
{
    if (m_ticker == ticker)
        return;
    if (m_ticker)
        m_ticker->disconnect(this);
    m_ticker = ticker;
    if (m_ticker)
        connect(m_ticker, &TickerViewModel::cryptoPriceStatusesChanged, this, &SymbolTrouble::follow);
    emit tickerChanged();
    follow();
}

void SymbolTrouble::setSymbol(const QString &symbol)
{
    publish(*this, m_symbol, symbol, &SymbolTrouble::symbolChanged);
    follow();
}

void SymbolTrouble::follow()
{
    const auto status = m_ticker ? m_ticker->cryptoPriceStatuses().value(m_symbol) : PriceStatus();
    publish(*this, m_text, PriceLabels::trouble(status.trouble()), &SymbolTrouble::textChanged);
}

} // namespace glimmet
