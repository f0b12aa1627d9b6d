#pragma once

#include "revenue/PagedRevenueService.h"

namespace glimmet {

/// Computes one revenue figure from the account's payments. There is a test mode at the service; only the
/// live one is asked.
class DodoService final : public PagedRevenueService {
public:
    static constexpr char liveEndpoint[] = "https://live.dodopayments.com";

    explicit DodoService(const ServiceWorld &world, QObject *parent = nullptr);

    /// The page in an answer; of its payments those in `currency`, which is in upper case. Any thread.
    static std::optional<RevenuePage> parsePage(const JsonValue &answer, const QString &currency);

protected:
    QByteArray pageAddress(const std::optional<QString> &cursor) const override;
    PageParser pageParser(const RevenueQuery &query, const std::optional<QString> &cursor) const override;
    std::function<bool(Instant)> periodTest(RevenueMode period) const override;
    QString summary(const RevenueQuery &query, const RevenueAccumulator &totals) const override;
    QString displayedCurrency(const RevenueQuery &query) const override { return query.currency; }
};

} // namespace glimmet
