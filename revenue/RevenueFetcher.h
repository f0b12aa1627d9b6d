#pragma once

#include "revenue/RevenueChoices.h"

#include <functional>

namespace glimmet {

/// What one fetch asks for.
struct RevenueQuery {
    RevenueProvider provider;
    RevenueMode period;
    RevenueMetric metric;
};

/// Answers one request with one finished text. Main thread.
class RevenueFetcher {
public:
    virtual ~RevenueFetcher() = default;
    /// Ends with exactly one call of `completion` on the main thread: the figure made by `format`, or an
    /// error text that begins with "⚠ ".
    virtual void fetch(const RevenueQuery &query, std::function<void(QString)> completion) = 0;
};

} // namespace glimmet
