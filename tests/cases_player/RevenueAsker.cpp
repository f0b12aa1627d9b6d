#include "tests/cases_player/RevenueAsker.h"

namespace glimmet {

RevenueAsker::RevenueAsker(
    const AnswerCase &played, const CaseFigure &figure, const QByteArray &origin, DiagnosticLog &log)
    : m_world(played)
    , m_services(m_world.http, log, m_world.clock, m_world.clock, m_world.region, endpointsAt(origin))
    , m_ticker(m_world.forTicker(m_services))
{
    applySettings(played);
    m_ticker.setRevenueMode(figure.period);
    m_ticker.setRevenueMetric(figure.metric);
    m_ticker.fetchRevenue();
}

void RevenueAsker::applySettings(const AnswerCase &played)
{
    m_ticker.setRevenueProvider(played.provider());
    switch (played.provider()) {
    case RevenueProvider::Polar:
        return m_ticker.setPolarAPIKey(played.key);
    case RevenueProvider::RevenueCat:
        m_ticker.setRevenueCatAPIKey(played.key);
        return m_ticker.setRevenueCatProjectID(played.projectID);
    case RevenueProvider::Dodo:
        m_ticker.setDodoAPIKey(played.key);
        return m_ticker.setDodoCurrency(played.currency.value_or(m_ticker.dodoCurrency()));
    case RevenueProvider::Stripe:
        m_ticker.setStripeAPIKey(played.key);
        return m_ticker.setStripeCurrency(played.currency.value_or(m_ticker.stripeCurrency()));
    case RevenueProvider::LemonSqueezy:
        return m_ticker.setLemonSqueezyAPIKey(played.key);
    }
    Q_UNREACHABLE();
}

} // namespace glimmet
