#include "ui/editors/ShownPrice.h"

#include "platform/DateTimeText.h"

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

PriceStatus statusAt(int index, const TickerViewModel &ticker)
{
    return index < 0 ? PriceStatus()
                     : ticker.cryptoPriceStatuses().value(ticker.cryptoSymbols().value(index));
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
        connect(m_ticker, &TickerViewModel::cryptoPriceStatusesChanged, this, &ShownPrice::follow);
        connect(m_ticker, &TickerViewModel::ticked, this, &ShownPrice::followDay);
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
    const PriceStatus status = m_ticker ? statusAt(index, *m_ticker) : PriceStatus();
    if (m_ticker)
        m_day = UsersDay::of(*m_ticker);
    const QString arrival = arrivalOf(status);
    if (index == m_index && price == m_price && status == m_status && arrival == m_arrival)
        return;
    m_index = index;
    m_price = price;
    m_status = status;
    m_arrival = arrival;
    emit changed();
}

QString ShownPrice::arrivalOf(const PriceStatus &status) const
{
    if (!status.cameAt())
        return {};
    return PriceLabels::asOf(recentTimeText(*status.cameAt(), m_ticker->now(), m_ticker->region()));
}

void ShownPrice::followDay()
{
    if (!m_arrival.isEmpty() && m_day != UsersDay::of(*m_ticker))
        follow();
}

} // namespace glimmet
