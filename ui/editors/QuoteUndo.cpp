#include "ui/editors/QuoteUndo.h"

namespace glimmet {

void QuoteUndo::watch(TickerViewModel &ticker)
{
    connect(&ticker, &TickerViewModel::customQuotesChanged, this, &QuoteUndo::follow);
}

QStringList QuoteUndo::readList()
{
    return ticker()->customQuotes();
}

void QuoteUndo::removeFromList(const QString &key)
{
    ticker()->removeQuote(key);
}

void QuoteUndo::clearList()
{
    ticker()->resetQuotes();
}

void QuoteUndo::writeList(const QList<ShownEntry> &entries, int returning)
{
    ticker()->setCustomQuotes(keysInList(entriesWithBack(entries, returning)));
}

} // namespace glimmet
