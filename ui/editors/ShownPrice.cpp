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

ShownPrice::ShownPrice(QObject *parent)
    : TickerFollower(parent)
{
    connect(this, &TickerFollower::tickerChanged, this, &ShownPrice::intervalChanged);
}

int ShownPrice::indexOnShow(const QStringList &symbols, qint64 index)
{
    return index < 0 || index >= symbols.size() ? -1 : static_cast<int>(index);
}

int ShownPrice::interval() const
{
    return ticker() ? static_cast<int>(ticker()->cryptoRotateInterval()) : 0;
}

void ShownPrice::watch(TickerViewModel &ticker)
{
    connect(&ticker, &TickerViewModel::cryptoSymbolsChanged, this, &ShownPrice::follow);
    connect(&ticker, &TickerViewModel::currentCryptoIndexChanged, this, &ShownPrice::follow);
    connect(&ticker, &TickerViewModel::cryptoPricesChanged, this, &ShownPrice::follow);
    connect(&ticker, &TickerViewModel::cryptoPriceStatusesChanged, this, &ShownPrice::follow);
    connect(&ticker, &TickerViewModel::cryptoRotateIntervalChanged, this, &ShownPrice::intervalChanged);
    watchDay(ticker);
}

void ShownPrice::follow()
{
    const int index = ticker() ? indexOnShow(ticker()->cryptoSymbols(), ticker()->currentCryptoIndex()) : -1;
    const std::optional<CryptoPrice> price = ticker() ? priceAt(index, *ticker()) : std::nullopt;
    const PriceStatus status = ticker() ? statusAt(index, *ticker()) : PriceStatus();
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
    return PriceLabels::asOf(recentTimeText(*status.cameAt(), ticker()->now(), ticker()->region()));
}

} // namespace glimmet
