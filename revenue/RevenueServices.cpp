#include "revenue/RevenueServices.h"

namespace glimmet {

RevenueEndpoints RevenueEndpoints::live()
{
    return { PolarService::liveEndpoint, RevenueCatService::liveEndpoint, DodoService::liveEndpoint,
        StripeService::liveEndpoint, LemonSqueezyService::liveEndpoint };
}

RevenueServices::RevenueServices(HttpClient &http, DiagnosticLog &log, const Clock &clock,
    const UserRegion &region, const RevenueEndpoints &endpoints)
    : m_polar({ http, log, clock, region, endpoints.polar })
    , m_revenueCat({ http, log, clock, region, endpoints.revenueCat })
    , m_dodo({ http, log, clock, region, endpoints.dodo })
    , m_stripe({ http, log, clock, region, endpoints.stripe })
    , m_lemonSqueezy({ http, log, clock, region, endpoints.lemonSqueezy })
{
}

void RevenueServices::fetch(const RevenueQuery &query, Completion completion)
{
    switch (query.provider) {
    case RevenueProvider::Polar:
        return m_polar.fetchMetric(query, std::move(completion));
    case RevenueProvider::RevenueCat:
        return m_revenueCat.fetchMetric(query, std::move(completion));
    case RevenueProvider::Dodo:
        return m_dodo.fetch(query, completion);
    case RevenueProvider::Stripe:
        return m_stripe.fetch(query, completion);
    case RevenueProvider::LemonSqueezy:
        return m_lemonSqueezy.fetch(query, completion);
    }
    Q_UNREACHABLE();
}

} // namespace glimmet
