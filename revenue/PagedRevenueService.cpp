#include "revenue/PagedRevenueService.h"

#include "platform/Clock.h"
#include "platform/DiagnosticLog.h"
#include "platform/net/HttpClient.h"
#include "platform/net/Json.h"
#include "revenue/Periods.h"

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

RevenuePageResult parsedPage(const QByteArray &body, const PagedRevenueService::PageParser &parse)
{
    const auto document = JsonDocument::read(body);
    const JsonValue answer = document ? document->root() : JsonValue();
    auto page = answer.isObject() && !answer.isEmptyObject() ? parse(answer) : std::nullopt;
    if (!page)
        return u"⚠ parse error"_s;
    return *std::move(page);
}

} // namespace

PagedRevenueService::PagedRevenueService(ServiceWorld world, AnswerRules rules, QObject *parent)
    : QObject(parent)
    , m_world(std::move(world))
    , m_rules(std::move(rules))
{
}

void PagedRevenueService::fetch(const RevenueQuery &query, const RevenueFetcher::Completion &completion)
{
    fetchAllPages(query, std::nullopt, {}, completion);
}

void PagedRevenueService::fetchPage(
    const RevenueQuery &query, const std::optional<QString> &cursor, PageCompletion completion)
{
    const auto read = [parse = pageParser(query, cursor), rules = m_rules, apiKey = query.apiKey,
                          &log = m_world.log](const HttpResult &result) -> RevenuePageResult {
        const auto body = checkedBody(result, rules, apiKey, log);
        if (const auto *error = std::get_if<QString>(&body))
            return *error;
        return parsedPage(std::get<QByteArray>(body), parse);
    };
    HttpRequest request = authorizedRequest(pageAddress(cursor), query.apiKey, acceptedType());
    request.largestBody = longestPage;
    m_world.http.get(request, this, read, std::move(completion));
}

void PagedRevenueService::fetchAllPages(const RevenueQuery &query, const std::optional<QString> &cursor,
    const RevenueAccumulator &accumulator, const RevenueFetcher::Completion &completion)
{
    fetchPage(query, cursor, [=, this](const RevenuePageResult &result) {
        if (const auto *error = std::get_if<QString>(&result))
            return completion(*error);
        const auto &page = std::get<RevenuePage>(result);
        const RevenueAccumulator totals = fold(page.orders, accumulator, periodTest(query.period));
        // On to the end, also past the period's beginning: how the list is ordered is the service's business.
        if (page.nextCursor)
            fetchAllPages(query, page.nextCursor, totals, completion);
        else
            finish(query, totals, completion);
    });
}

void PagedRevenueService::finish(const RevenueQuery &query, const RevenueAccumulator &totals,
    const RevenueFetcher::Completion &completion) const
{
    m_world.log.line(summary(query, totals));
    completion(format(query.metric, totals.totals(), displayedCurrency(query)));
}

std::function<bool(Instant)> PagedRevenueService::periodTest(RevenueMode period) const
{
    const auto cutoff = Periods::cutoffDate(period, m_world.clock.now(), m_world.region);
    return [cutoff](Instant created) { return !cutoff || created >= *cutoff; };
}

QString choicesText(const RevenueQuery &query)
{
    return rawValue(query.period) + u'/' + rawValue(query.metric);
}

} // namespace glimmet
