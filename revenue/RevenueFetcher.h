#pragma once

#include "platform/keys/ApiKey.h"
#include "revenue/RevenueChoices.h"

#include <functional>

namespace glimmet {

/// What one fetch asks for.
struct RevenueQuery {
    RevenueProvider provider = RevenueProvider::Polar;
    RevenueMode period = RevenueMode::AllTime;
    RevenueMetric metric = RevenueMetric::Revenue;
    ApiKey apiKey; ///< as stored
    QString projectID; ///< as stored; RevenueCat's alone
    QString currency; ///< ISO 4217 in the letter case that the platform wants; Dodo's and Stripe's alone
};

/// What a fetch ends with.
struct RevenueResult {
    /// Finished: the figure made by `format`, an error text that begins with "⚠ ", or the name of what is
    /// missing, such as "add api key".
    QString text;
    bool lacksNetwork = false; ///< an error, and the last request came to nobody

    friend bool operator==(const RevenueResult &, const RevenueResult &) = default;
};

/// Answers one request with one finished text. Main thread.
class RevenueFetcher {
public:
    using Completion = std::function<void(const RevenueResult &result)>;

    virtual ~RevenueFetcher() = default;
    /// Ends with exactly one call of `completion` on the main thread.
    virtual void fetch(const RevenueQuery &query, Completion completion) = 0;
};

} // namespace glimmet
