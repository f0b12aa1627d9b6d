#pragma once

#include "revenue/PagedRevenueService.h"

namespace glimmet {

/// Computes one revenue figure from the account's charges.
///
/// Refunds are not looked at: a charge that succeeded counts at its full amount.
class StripeService final : public PagedRevenueService {
public:
    static constexpr char liveEndpoint[] = "https://api.stripe.com";

    explicit StripeService(const ServiceWorld &world, QObject *parent = nullptr);

    /// The page in an answer; of its charges those in `currency`, which is in lower case. Any thread.
    static std::optional<RevenuePage> parsePage(const JsonValue &answer, const QString &currency);

protected:
    QByteArray pageAddress(const std::optional<QString> &cursor) const override;
    PageParser pageParser(const RevenueQuery &query, const std::optional<QString> &cursor) const override;
    QString summary(const RevenueQuery &query, const RevenueAccumulator &totals) const override;
    QString displayedCurrency(const RevenueQuery &query) const override { return query.currency.toUpper(); }
};

} // namespace glimmet
