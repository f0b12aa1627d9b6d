#include "revenue/RevenueServices.h"

#include "revenue/DodoService.h"
#include "revenue/LemonSqueezyService.h"
#include "revenue/PolarService.h"
#include "revenue/RevenueCatService.h"
#include "revenue/StripeService.h"

#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace glimmet {
namespace {

using Asking = std::function<void(const RevenueQuery &query, RevenueFetcher::Completion completion)>;

struct Row {
    RevenueProvider provider;
    QByteArray liveEndpoint;
    Asking (*asking)(const ServiceWorld &world); ///< with a service of its own
};

template <typename Service> Asking askingOf(const ServiceWorld &world)
{
    return [service = std::make_shared<Service>(world)](
               const RevenueQuery &query, const RevenueFetcher::Completion &completion) {
        if constexpr (std::is_base_of_v<PagedRevenueService, Service>)
            service->fetch(query, completion);
        else
            service->fetchMetric(query, completion);
    };
}

template <typename Service> Row row(RevenueProvider provider)
{
    return { provider, Service::liveEndpoint, askingOf<Service> };
}

std::vector<Row> rows()
{
    return {
        row<PolarService>(RevenueProvider::Polar),
        row<RevenueCatService>(RevenueProvider::RevenueCat),
        row<DodoService>(RevenueProvider::Dodo),
        row<StripeService>(RevenueProvider::Stripe),
        row<LemonSqueezyService>(RevenueProvider::LemonSqueezy),
    };
}

} // namespace

RevenueEndpoints liveEndpoints()
{
    RevenueEndpoints endpoints;
    for (const Row &row : rows())
        endpoints.emplace(row.provider, row.liveEndpoint);
    return endpoints;
}

RevenueEndpoints endpointsAt(const QByteArray &origin)
{
    RevenueEndpoints endpoints;
    for (const Row &row : rows())
        endpoints.emplace(row.provider, origin);
    return endpoints;
}

RevenueServices::RevenueServices(HttpClient &http, DiagnosticLog &log, const Clock &clock,
    const SteadyClock &steadyClock, const UserRegion &region, const RevenueEndpoints &endpoints,
    const HistoryBounds &bounds)
{
    for (const Row &row : rows())
        m_askings.emplace(row.provider,
            row.asking({ http, log, clock, steadyClock, region, endpoints.at(row.provider), bounds }));
}

void RevenueServices::fetch(const RevenueQuery &query, Completion completion)
{
    m_askings.at(query.provider)(query, std::move(completion));
}

} // namespace glimmet
