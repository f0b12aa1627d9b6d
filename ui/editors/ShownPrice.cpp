#include "ui/editors/ShownPrice.h"

namespace glimmet {

namespace {

std::optional<CryptoPrice> priceAt(int index, const TickerViewModel &ticker)
{
    const QHash<QString, CryptoPrice> prices = ticker.cryptoPrices();
    const QString symbol = ticker.cryptoSymbols().value(index);
    if (index < 0 || !prices.contains(symbol))
        return {};
    return prices.value(symbol);
}

} // namespace

int ShownPrice::indexOnShow(const QStringList &symbols, qint64 index)
{
    return index < 0 || index >= symbols.size() ? -1 : static_cast<int>(index);
}

int ShownPrice::interval() const
{
    return m_ticker ? static_cast<int>(m_ticker->cryptoRotateInterval()) : 0;
}

void ShownPrice::setTicker(TickerViewModel *ticker)
{
    if (m_ticker == ticker)
        return;
    if (m_ticker)
        m_ticker->disconnect(this);
    m_ticker = ticker;
    if (m_ticker) {
        connect(m_ticker, &TickerViewModel::cryptoSymbolsChanged, this, &ShownPrice::follow);
        connect(m_ticker, &TickerViewModel::currentCryptoIndexChanged, this, &ShownPrice::follow);
        connect(m_ticker, &TickerViewModel::cryptoPricesChanged, this, &ShownPrice::follow);
        connect(m_ticker, &TickerViewModel::cryptoRotateIntervalChanged, this, &ShownPrice::intervalChanged);
    }
    emit tickerChanged();
    emit intervalChanged();
    follow();
}

void ShownPrice::follow()
{
    const int index = m_ticker ? indexOnShow(m_ticker->cryptoSymbols(), m_ticker->currentCryptoIndex()) : -1;
    const std::optional<CryptoPrice> price = m_ticker ? priceAt(index, *m_ticker) : std::nullopt;
    if (index == m_index && price == m_price)
        return;
    m_index = index;
    m_price = price;
    emit changed();
}

} // namespace glimmet
