#include "revenue/RevenueFormat.h"

#include "platform/CurrencyText.h"

namespace glimmet {
namespace {

QString averageText(const RevenueTotals &totals, const QString &currency)
{
    if (totals.orders < 1)
        return QStringLiteral("📐 no orders");
    return QStringLiteral("📐 avg ") + fmtCents(totals.revenue / totals.orders, currency);
}

QString topText(const RevenueTotals &totals, const QString &currency)
{
    if (totals.orders < 1)
        return QStringLiteral("👑 no orders");
    return QStringLiteral("👑 top ") + fmtCents(totals.max, currency);
}

} // namespace

QString fmtCents(qint64 cents, const QString &currency)
{
    return currencyText(static_cast<double>(cents) / 100.0, currency, 2).value_or(QStringLiteral("$0.00"));
}

QString format(RevenueMetric metric, const RevenueTotals &totals, const QString &currency)
{
    switch (metric) {
    case RevenueMetric::Revenue:
        return QStringLiteral("💰 ") + fmtCents(totals.revenue, currency);
    case RevenueMetric::Orders:
        return QStringLiteral("🛒 ") + QString::number(totals.orders) + QStringLiteral(" orders");
    case RevenueMetric::Avg:
        return averageText(totals, currency);
    case RevenueMetric::Top:
        return topText(totals, currency);
    }
    Q_UNREACHABLE();
}

} // namespace glimmet
