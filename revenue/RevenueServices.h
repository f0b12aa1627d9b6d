#pragma once

#include "revenue/DodoService.h"
#include "revenue/LemonSqueezyService.h"
#include "revenue/PolarService.h"
#include "revenue/RevenueCatService.h"
#include "revenue/StripeService.h"

namespace glimmet {

/// Where the platforms are: one https origin each.
struct RevenueEndpoints {
    QByteArray polar;
    QByteArray revenueCat;
    QByteArray dodo;
    QByteArray stripe;
    QByteArray lemonSqueezy;

    /// The platforms' own.
    static RevenueEndpoints live();
};

/// Asks the platform that a query names.
class RevenueServices final : public RevenueFetcher {
public:
    RevenueServices(HttpClient &http, DiagnosticLog &log, const Clock &clock, const UserRegion &region,
        const RevenueEndpoints &endpoints);

    void fetch(const RevenueQuery &query, Completion completion) override;

private:
    PolarService m_polar;
    RevenueCatService m_revenueCat;
    DodoService m_dodo;
    StripeService m_stripe;
    LemonSqueezyService m_lemonSqueezy;
};

} // namespace glimmet
