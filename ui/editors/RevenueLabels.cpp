#include "ui/editors/RevenueLabels.h"

#include "core/TickerMode.h"
#include "revenue/RevenuePlatforms.h"
#include "ui/editors/CaseNumbers.h"

namespace glimmet {

QList<int> RevenueLabels::providers()
{
    return caseNumbers<RevenueProvider>();
}

QList<int> RevenueLabels::metrics()
{
    return caseNumbers<RevenueMetric>();
}

QList<int> RevenueLabels::periods()
{
    return caseNumbers<RevenueMode>();
}

QStringList RevenueLabels::currencies()
{
    return { QStringLiteral("USD"), QStringLiteral("EUR"), QStringLiteral("GBP"), QStringLiteral("CAD"),
        QStringLiteral("AUD") };
}

QString RevenueLabels::providerLabel(int provider)
{
    return rawValue(static_cast<RevenueProvider>(provider));
}

QString RevenueLabels::providerSymbol(int provider)
{
    return revenuePlatform(static_cast<RevenueProvider>(provider)).symbol;
}

QString RevenueLabels::metricLabel(int metric)
{
    switch (static_cast<RevenueMetric>(metric)) {
    case RevenueMetric::Revenue:
        return QStringLiteral("Revenue");
    case RevenueMetric::Orders:
        return QStringLiteral("Orders");
    case RevenueMetric::Avg:
        return QStringLiteral("Avg");
    case RevenueMetric::Top:
        return QStringLiteral("Top");
    }
    return {};
}

QString RevenueLabels::metricName(int metric)
{
    const QString label = metricLabel(metric);
    return fromRawValue<TickerMode>(label) ? QStringLiteral("METRIC ") + label : label;
}

QString RevenueLabels::metricSymbol(int metric)
{
    switch (static_cast<RevenueMetric>(metric)) {
    case RevenueMetric::Revenue:
        return QStringLiteral("dollarsign");
    case RevenueMetric::Orders:
        return QStringLiteral("bag");
    case RevenueMetric::Avg:
        return QStringLiteral("chart.bar");
    case RevenueMetric::Top:
        return QStringLiteral("crown");
    }
    return {};
}

QString RevenueLabels::periodLabel(int period)
{
    return rawValue(static_cast<RevenueMode>(period));
}

QString RevenueLabels::periodSymbol(int period)
{
    switch (static_cast<RevenueMode>(period)) {
    case RevenueMode::Today:
        return QStringLiteral("sun.max");
    case RevenueMode::Week:
        return QStringLiteral("7.square");
    case RevenueMode::Month:
        return QStringLiteral("calendar");
    case RevenueMode::AllTime:
        return QStringLiteral("infinity");
    }
    return {};
}

QString RevenueLabels::periodNote(int provider)
{
    return revenuePlatform(static_cast<RevenueProvider>(provider)).periodNote;
}

} // namespace glimmet
