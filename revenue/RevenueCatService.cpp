#include "revenue/RevenueCatService.h"

#include "platform/DiagnosticLog.h"
#include "platform/net/Json.h"
#include "revenue/Amount.h"
#include "revenue/FigureRequest.h"
#include "revenue/RevenueFormat.h"
#include "revenue/RevenuePlatforms.h"

#include <QStringList>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

const AnswerRules &answerRules()
{
    static const AnswerRules rules{ .service = u"RevenueCat"_s,
        .body = u"response"_s,
        .headLength = 600,
        .forbidden = u"⚠ no permission"_s };
    return rules;
}

RevenueCatService::Metrics loggedMetrics(const QByteArray &body, const ApiKey &apiKey, DiagnosticLog &log)
{
    const auto metrics = RevenueCatService::parse(body);
    if (!metrics)
        return {};
    // An id is whatever the server says.
    const QByteArray text = masked(RevenueCatService::printed(*metrics).toUtf8(), apiKey);
    log.line("RevenueCat metrics: "_L1 + QString::fromUtf8(text));
    return *metrics;
}

/// The text between quotes, on one line.
QString quoted(QString text)
{
    text.replace(u'\\', R"(\\)"_L1).replace(u'"', R"(\")"_L1);
    text.replace(u'\n', R"(\n)"_L1).replace(u'\r', R"(\r)"_L1).replace(u'\t', R"(\t)"_L1);
    return u'"' + text + u'"';
}

} // namespace

RevenueCatService::RevenueCatService(ServiceWorld world, QObject *parent)
    : QObject(parent)
    , m_world(std::move(world))
{
}

void RevenueCatService::fetchMetric(const RevenueQuery &query, RevenueFetcher::Completion completion)
{
    if (const QString missing = missingInput(query); !missing.isEmpty())
        return completion({ missing });
    const QByteArray address =
        m_world.endpoint + "/v2/projects/" + query.projectID.toUtf8() + "/metrics/overview";
    const auto figure = [metric = query.metric, apiKey = query.apiKey, &log = m_world.log](
                            const QByteArray &body) {
        return format(metric, loggedMetrics(body, apiKey, log));
    };
    askForFigure(m_world, this, { address, query.apiKey, answerRules() }, figure, std::move(completion));
}

std::optional<RevenueCatService::Metrics> RevenueCatService::parse(const QByteArray &body)
{
    const auto document = JsonDocument::readInPlace(body);
    const auto list = document ? document->root()["metrics"].listOfObjects() : std::nullopt;
    if (!list)
        return std::nullopt;
    Metrics metrics;
    for (const JsonValue &metric : *list)
        if (const auto id = metric["id"].text())
            metrics.insert(*id, Amount(metric["value"]).truncated());
    return metrics;
}

QString RevenueCatService::printed(const Metrics &metrics)
{
    if (metrics.isEmpty())
        return u"[:]"_s;
    QStringList entries;
    for (auto metric = metrics.begin(); metric != metrics.end(); ++metric)
        entries.append(quoted(metric.key()) + ": "_L1 + QString::number(metric.value()));
    return u'[' + entries.join(", "_L1) + u']';
}

QString RevenueCatService::format(RevenueMetric metric, const Metrics &metrics)
{
    const qint64 revenue = metrics.value(u"revenue"_s);
    const qint64 transactions = metrics.value(u"num_tx_last_28_days"_s);
    switch (metric) {
    case RevenueMetric::Revenue:
        return glimmet::format(metric, { .revenue = revenue, .orders = 1 }, u"USD"_s);
    case RevenueMetric::Orders:
        return u"🛒 "_s + QString::number(transactions) + " tx"_L1;
    case RevenueMetric::Avg:
        if (transactions < 1)
            return u"📐 no tx"_s;
        return glimmet::format(metric, { .revenue = revenue, .orders = transactions }, u"USD"_s);
    case RevenueMetric::Top:
        return u"📊 MRR: "_s + fmtCents(metrics.value(u"mrr"_s), u"USD"_s);
    }
    Q_UNREACHABLE();
}

} // namespace glimmet
