#include "tests/support/FakePriceSource.h"

namespace glimmet {

void FakePriceSource::fetchPrice(const QString &symbol, Completion completion)
{
    m_requests.push_back({ symbol, completion });
    const auto price = m_prices.constFind(symbol);
    if (price != m_prices.constEnd())
        completion(*price);
}

QStringList FakePriceSource::asked() const
{
    QStringList symbols;
    for (const Request &request : m_requests)
        symbols.append(request.symbol);
    return symbols;
}

void FakePriceSource::answer(std::size_t request, const PriceResult &result)
{
    m_requests.at(request).completion(result);
}

} // namespace glimmet
