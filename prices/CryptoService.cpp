#include "prices/CryptoService.h"

#include "platform/DiagnosticLog.h"
#include "platform/net/HttpClient.h"
#include "prices/PriceChart.h"

namespace glimmet {

CryptoService::CryptoService(HttpClient &http, DiagnosticLog &log, QByteArray endpoint, QObject *parent)
    : QObject(parent)
    , m_http(http)
    , m_log(log)
    , m_endpoint(std::move(endpoint))
{
}

void CryptoService::fetchPrice(const QString &symbol, Completion completion)
{
    const auto address = PriceChart::address(m_endpoint, symbol);
    const auto parse = [symbol, &log = m_log](const HttpResult &result) -> PriceResult {
        if (const auto *failure = std::get_if<TransportFailure>(&result))
            return lacksNetwork(*failure) ? PriceFailure::NoNetwork : PriceFailure::NoPrice;
        // The status says nothing that the body does not: an error's body holds no price.
        auto price = PriceChart::parse(std::get<HttpAnswer>(result).body, symbol);
        if (!price)
            return PriceFailure::NoPrice;
        log.privateLine(PriceChart::logLine(*price));
        price->history = PriceChart::bounded(price->history); // The main thread compares and draws it.
        return *std::move(price);
    };
    // Without an address the client refuses the request: every failure takes the same way back.
    m_http.get({ address.value_or(QByteArray()), { { "User-Agent", "Mozilla/5.0" } } }, this, parse,
        std::move(completion));
}

} // namespace glimmet
