#pragma once

#include "revenue/AnswerChecks.h"
#include "revenue/RevenueFetcher.h"
#include "revenue/ServiceWorld.h"

#include <QMap>
#include <QObject>

namespace glimmet {

/// Answers one revenue request by the overview of a RevenueCat project, whose figures are of the last 28 days
/// whatever the period. The largest order is not among them: the figure for it is the monthly recurring
/// revenue. Always written in US dollars. Main thread.
class RevenueCatService final : public QObject {
    Q_OBJECT

public:
    static constexpr char liveEndpoint[] = "https://api.revenuecat.com";

    /// Values by their id: cents or counts.
    using Metrics = QMap<QString, qint64>;

    explicit RevenueCatService(ServiceWorld world, QObject *parent = nullptr);

    /// Ends with exactly one call of `completion`; within this call where nothing can be sent.
    void fetchMetric(const RevenueQuery &query, RevenueFetcher::Completion completion);

    /// The metrics in a body; nothing where it holds none. A value that 64 bits cannot hold ends the process.
    /// Any thread.
    static std::optional<Metrics> parse(const QByteArray &body);
    /// "["mrr": 9900, "revenue": 123456]", or "[:]".
    static QString printed(const Metrics &metrics);
    static QString format(RevenueMetric metric, const Metrics &metrics);

private:
    ServiceWorld m_world;
};

} // namespace glimmet
