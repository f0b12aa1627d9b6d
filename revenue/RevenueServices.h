#pragma once

#include "revenue/HistoryBounds.h"
#include "revenue/RevenueFetcher.h"

#include <QByteArray>

#include <map>

namespace glimmet {

class Clock;
class DiagnosticLog;
class HttpClient;
class SteadyClock;
class UserRegion;

/// Where each platform is: an https origin.
using RevenueEndpoints = std::map<RevenueProvider, QByteArray>;

/// The platforms' own.
RevenueEndpoints liveEndpoints();
/// All of them at one place, for tests.
RevenueEndpoints endpointsAt(const QByteArray &origin);

/// Asks the platform that a query names. Main thread.
class RevenueServices final : public RevenueFetcher {
public:
    /// What it is given outlives it.
    RevenueServices(HttpClient &http, DiagnosticLog &log, const Clock &clock, const SteadyClock &steadyClock,
        const UserRegion &region, const RevenueEndpoints &endpoints, const HistoryBounds &bounds = {});

    void fetch(const RevenueQuery &query, Completion completion) override;

private:
    using Asking = std::function<void(const RevenueQuery &query, Completion completion)>;

    std::map<RevenueProvider, Asking> m_askings;
};

} // namespace glimmet
