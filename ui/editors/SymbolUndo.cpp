#include "ui/editors/SymbolUndo.h"

namespace glimmet {

void SymbolUndo::watch(TickerViewModel &ticker)
{
    connect(&ticker, &TickerViewModel::cryptoSymbolsChanged, this, &SymbolUndo::follow);
}

QStringList SymbolUndo::readList()
{
    return ticker()->cryptoSymbols();
}

void SymbolUndo::removeFromList(const QString &key)
{
    ticker()->removeCryptoSymbol(key);
}

void SymbolUndo::clearList()
{
    ticker()->setCryptoSymbols({});
}

void SymbolUndo::writeList(const QList<ShownEntry> &entries, int returning)
{
    ticker()->setCryptoSymbols(keysInList(entriesWithBack(entries, returning)));
}

} // namespace glimmet
