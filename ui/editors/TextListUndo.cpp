#include "ui/editors/TextListUndo.h"

namespace glimmet {

QuoteUndo::QuoteUndo(QObject *parent)
    : TextListUndo({ &TickerViewModel::customQuotesChanged, &TickerViewModel::customQuotes,
                       &TickerViewModel::setCustomQuotes, &TickerViewModel::removeQuote },
          parent)
{
}

SymbolUndo::SymbolUndo(QObject *parent)
    : TextListUndo({ &TickerViewModel::cryptoSymbolsChanged, &TickerViewModel::cryptoSymbols,
                       &TickerViewModel::setCryptoSymbols, &TickerViewModel::removeCryptoSymbol },
          parent)
{
}

void TextListUndo::watch(TickerViewModel &ticker)
{
    connect(&ticker, m_list.changed, this, &TextListUndo::follow);
}

QStringList TextListUndo::readList()
{
    return (ticker()->*m_list.read)();
}

void TextListUndo::removeFromList(const QString &key)
{
    (ticker()->*m_list.remove)(key);
}

void TextListUndo::clearList()
{
    (ticker()->*m_list.write)({});
}

void TextListUndo::writeList(const QList<ShownEntry> &entries, int returning)
{
    (ticker()->*m_list.write)(keysInList(entriesWithBack(entries, returning)));
}

} // namespace glimmet
