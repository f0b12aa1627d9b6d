#include "revenue/PolarService.h"

#include "platform/CheckedInteger.h"
#include "platform/Clock.h"
#include "platform/DiagnosticLog.h"
#include "platform/net/Json.h"
#include "revenue/Amount.h"
#include "revenue/FigureRequest.h"
#include "revenue/Periods.h"
#include "revenue/RevenuePlatforms.h"

#include <QRegularExpression>

#include <algorithm>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

const AnswerRules &answerRules()
{
    static const AnswerRules rules{ .service = u"Polar"_s,
        .body = u"response"_s,
        .headLength = 1000,
        .empty = u"⚠ empty response"_s,
        .unprocessable = u"⚠ bad request"_s };
    return rules;
}

/// Whether Qt, which also reads numbers with blanks around them, may be asked.
bool isWholeNumber(const QString &text)
{
    static const QRegularExpression expression(u"\\A[+-]?[0-9]+\\z"_s);
    return expression.match(text).hasMatch();
}

/// Cents as they are; a text holds them as digits.
qint64 toCents(const JsonValue &value)
{
    if (const auto text = value.text())
        return isWholeNumber(*text) ? text->toLongLong() : 0;
    return Amount(value).truncated();
}

qint64 ordersIn(const JsonValue &period)
{
    const JsonValue checkouts = period["succeeded_checkouts"];
    return Amount(checkouts.exists() ? checkouts : period["orders"]).truncated();
}

void add(const JsonValue &period, RevenueTotals &totals)
{
    const qint64 revenue = toCents(period["revenue"]);
    totals.revenue = checkedSum(totals.revenue, revenue);
    totals.orders = checkedSum(totals.orders, ordersIn(period));
    totals.max = std::max(totals.max, revenue);
}

/// The digits of every calendar that computers share, whatever the user's own look like.
QString text(QDate date)
{
    return date.toString(Qt::ISODate);
}

} // namespace

PolarService::PolarService(ServiceWorld world, QObject *parent)
    : QObject(parent)
    , m_world(std::move(world))
{
}

void PolarService::fetchMetric(const RevenueQuery &query, RevenueFetcher::Completion completion)
{
    if (const QString missing = missingInput(query); !missing.isEmpty())
        return completion({ missing });
    const auto figure = [metric = query.metric, &log = m_world.log](
                            const QByteArray &body) { return format(metric, parse(body, log), u"USD"_s); };
    askForFigure(m_world, this, { buildUrl(query.period), query.apiKey, answerRules() }, figure,
        std::move(completion));
}

PolarService::DateRange PolarService::dateRange(RevenueMode period) const
{
    const QDate today = Periods::dateAt(m_world.clock.now(), m_world.region);
    switch (period) {
    case RevenueMode::Today:
        return { text(today), text(today), u"day"_s };
    case RevenueMode::Week:
        return { text(today.addDays(-7)), text(today), u"day"_s };
    case RevenueMode::Month:
        return { text(Periods::firstOfMonth(today)), text(today), u"day"_s };
    case RevenueMode::AllTime:
        return { u"2020-01-01"_s, text(today), u"year"_s };
    }
    Q_UNREACHABLE();
}

QByteArray PolarService::buildUrl(RevenueMode period) const
{
    const DateRange range = dateRange(period);
    QByteArray address = m_world.endpoint + "/v1/metrics/?start_date=" + range.start.toUtf8()
        + "&end_date=" + range.end.toUtf8() + "&interval=" + range.interval.toUtf8();
    m_world.log.line("Polar URL: "_L1 + (isSendableAddress(address) ? QString::fromUtf8(address) : u"nil"_s));
    return address;
}

RevenueTotals PolarService::parse(const QByteArray &body, DiagnosticLog &log)
{
    RevenueTotals totals;
    const auto document = JsonDocument::readInPlace(body);
    const auto periods = document ? document->root()["periods"].listOfObjects() : std::nullopt;
    if (!periods)
        return totals;
    for (const JsonValue &period : *periods)
        add(period, totals);
    log.line("Polar: revenue="_L1 + QString::number(totals.revenue) + ", orders="_L1
        + QString::number(totals.orders) + ", maxPeriod="_L1 + QString::number(totals.max));
    return totals;
}

} // namespace glimmet
