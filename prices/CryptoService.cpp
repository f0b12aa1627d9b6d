#include "prices/CryptoService.h"

#include "platform/DiagnosticLog.h"
#include "platform/net/HttpClient.h"
#include "prices/PriceChart.h"

namespace glimmet {
namespace {

PriceFailure priceFailure(TransportFailure failure)
{
    if (failure == TransportFailure::InvalidAddress)
        return PriceFailure::NotFound; // What cannot be asked for is no symbol of the service's.
    return lacksNetwork(failure) ? PriceFailure::NoNetwork : PriceFailure::NoAnswer;
}

} // namespace

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
            return priceFailure(*failure);
        // The status says nothing that the body does not: an error's body holds no price.
        PriceResult parsed = PriceChart::parse(std::get<HttpAnswer>(result).body, symbol);
        if (auto *price = std::get_if<CryptoPrice>(&parsed)) {
            log.privateLine(PriceChart::logLine(*price));
            price->history = PriceChart::bounded(price->history); // The main thread compares and draws it.
        }
        return parsed;
    };
    // Without an address the client refuses the request: every failure takes the same way back.
    m_http.get({ address.value_or(QByteArray()), { { "User-Agent", "Mozilla/5.0" } } }, this, parse,
        std::move(completion));
}

} // namespace glimmet
