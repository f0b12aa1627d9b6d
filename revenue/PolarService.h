#pragma once

#include "revenue/AnswerChecks.h"
#include "revenue/RevenueFetcher.h"
#include "revenue/RevenueFormat.h"
#include "revenue/ServiceWorld.h"

#include <QObject>

namespace glimmet {

/// Answers one revenue request by Polar's metrics, which come as sums of days or years. The largest order is
/// not among them: the figure for it is the best single day or year. Always written in US dollars. Main
/// thread.
class PolarService final : public QObject {
    Q_OBJECT

public:
    static constexpr char liveEndpoint[] = "https://api.polar.sh";

    /// What is asked for; dates as "2026-11-20".
    struct DateRange {
        QString start;
        QString end;
        QString interval; ///< "day" or "year"
    };

    explicit PolarService(ServiceWorld world, QObject *parent = nullptr);

    /// Ends with exactly one call of `completion`; within this call where nothing can be sent.
    void fetchMetric(const RevenueQuery &query, RevenueFetcher::Completion completion);

    /// The period's days on the user's calendar at this moment.
    DateRange dateRange(RevenueMode period) const;

    /// The sums in a body; zeros where it holds none. A sum that 64 bits cannot hold ends the process. Any
    /// thread.
    static RevenueTotals parse(const QByteArray &body, DiagnosticLog &log);

private:
    QByteArray buildUrl(RevenueMode period) const;

    ServiceWorld m_world;
};

} // namespace glimmet
