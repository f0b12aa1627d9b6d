#pragma once

#include "revenue/PagedRevenueService.h"

namespace glimmet {

/// Computes one revenue figure from the orders of the account's stores, always written in US dollars.
class LemonSqueezyService final : public PagedRevenueService {
public:
    static constexpr char liveEndpoint[] = "https://api.lemonsqueezy.com";

    explicit LemonSqueezyService(const ServiceWorld &world, QObject *parent = nullptr);

    /// The page with this number (from 1) in an answer. Any thread.
    static std::optional<RevenuePage> parsePage(const JsonValue &answer, qint64 number);

protected:
    QByteArray pageAddress(const std::optional<QString> &cursor) const override;
    PageParser pageParser(const RevenueQuery &query, const std::optional<QString> &cursor) const override;
    QByteArray acceptedType() const override { return "application/vnd.api+json"; }
    QString summary(const RevenueQuery &query, const RevenueAccumulator &totals) const override;
    QString displayedCurrency(const RevenueQuery &) const override { return QStringLiteral("USD"); }
};

} // namespace glimmet
