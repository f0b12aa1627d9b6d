#include "ui/editors/SymbolTrouble.h"

#include "platform/Publish.h"
#include "ui/editors/PriceLabels.h"

namespace glimmet {

void SymbolTrouble::watch(TickerViewModel &ticker)
{
    connect(&ticker, &TickerViewModel::cryptoPriceStatusesChanged, this, &SymbolTrouble::follow);
}

void SymbolTrouble::setSymbol(const QString &symbol)
{
    publish(*this, m_symbol, symbol, &SymbolTrouble::symbolChanged);
    follow();
}

void SymbolTrouble::follow()
{
    const auto status = ticker() ? ticker()->cryptoPriceStatuses().value(m_symbol) : PriceStatus();
    publish(*this, m_text, PriceLabels::trouble(status.trouble()), &SymbolTrouble::textChanged);
}

} // namespace glimmet
