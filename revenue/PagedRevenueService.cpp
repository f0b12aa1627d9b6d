#include "revenue/PagedRevenueService.h"

#include "platform/Clock.h"
#include "platform/DiagnosticLog.h"
#include "platform/SteadyClock.h"
#include "platform/net/HttpClient.h"
#include "platform/net/Json.h"
#include "revenue/Periods.h"

#include <QThreadPool>

#include <algorithm>
#include <utility>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// A page may hold hundreds of thousands of orders; a slice is folded within a millisecond.
constexpr std::size_t ordersInASlice = 5'000;
/// A longer one, it may be of megabytes, fits no address, and is not for the main thread to find that out.
constexpr qsizetype longestCursor = 16'384;

RevenueResult unreadable()
{
    return { u"⚠ parse error"_s };
}

RevenuePageResult parsedPage(const QByteArray &body, const PagedRevenueService::PageParser &parse)
{
    const auto document = JsonDocument::readInPlace(body);
    const JsonValue answer = document ? document->root() : JsonValue();
    auto page = answer.isObject() && !answer.isEmptyObject() ? parse(answer) : std::nullopt;
    if (!page)
        return unreadable();
    if (page->nextCursor && page->nextCursor->size() > longestCursor)
        return transportError(TransportFailure::InvalidAddress);
    return *std::move(page);
}

/// Gives the memory of a page back. That of a long one takes milliseconds, which are not the main thread's.
void drop(std::vector<PagedOrder> orders)
{
    if (orders.size() > ordersInASlice)
        QThreadPool::globalInstance()->start(
            [dropped = std::make_shared<std::vector<PagedOrder>>(std::move(orders))] {});
}

} // namespace

/// A list on its way: what a fetch carries from page to page.
struct PagedRevenueService::Chain {
    RevenueQuery query;
    RevenueFetcher::Completion completion;
    Stopwatch sinceBeginning;
    qint64 pages = 0; ///< asked for so far
    RevenueAccumulator totals = {}; ///< of what was folded so far
    RevenuePage page = {}; ///< the one that is being folded
    std::size_t folded = 0; ///< of its orders
    std::function<bool(Instant)> isInPeriod = {}; ///< for its orders
};

PagedRevenueService::PagedRevenueService(ServiceWorld world, AnswerRules rules, QObject *parent)
    : QObject(parent)
    , m_world(std::move(world))
    , m_rules(std::move(rules))
{
}

void PagedRevenueService::fetch(const RevenueQuery &query, const RevenueFetcher::Completion &completion)
{
    const auto chain = std::make_shared<Chain>(Chain{ query, completion, Stopwatch(m_world.steadyClock) });
    chain->sinceBeginning.start();
    fetchPage(chain, std::nullopt);
}

void PagedRevenueService::fetchPage(const ChainPointer &chain, const std::optional<QString> &cursor)
{
    const RevenueQuery &query = chain->query;
    const auto read = [parse = pageParser(query, cursor), rules = m_rules, apiKey = query.apiKey,
                          &log = m_world.log](const HttpResult &result) -> RevenuePageResult {
        const auto body = checkedBody(result, rules, apiKey, log);
        if (const auto *error = std::get_if<RevenueResult>(&body))
            return *error;
        return parsedPage(std::get<QByteArray>(body), parse);
    };
    ++chain->pages;
    HttpRequest request = authorizedRequest(pageAddress(cursor), query.apiKey, acceptedType());
    request.largestBody = longestPage;
    m_world.http.get(
        request, this, read, [this, chain](RevenuePageResult result) { takePage(chain, std::move(result)); });
}

void PagedRevenueService::takePage(const ChainPointer &chain, RevenuePageResult result)
{
    if (const auto *error = std::get_if<RevenueResult>(&result))
        return chain->completion(*error);
    chain->page = std::get<RevenuePage>(std::move(result));
    chain->folded = 0;
    chain->isInPeriod = periodTest(chain->query.period);
    foldSlice(chain);
}

void PagedRevenueService::foldSlice(const ChainPointer &chain)
{
    const auto rest = std::span<const PagedOrder>(chain->page.orders).subspan(chain->folded);
    const auto slice = rest.first(std::min(rest.size(), ordersInASlice));
    chain->totals = fold(slice, chain->totals, chain->isInPeriod);
    chain->folded += slice.size();
    if (slice.size() < rest.size())
        QMetaObject::invokeMethod(this, [this, chain] { foldSlice(chain); }, Qt::QueuedConnection);
    else
        goOn(chain);
}

void PagedRevenueService::goOn(const ChainPointer &chain)
{
    RevenuePage page = std::exchange(chain->page, {});
    drop(std::move(page.orders));
    // On to the end, also past the period's beginning: how the list is ordered is the service's business.
    if (!page.nextCursor)
        finish(*chain);
    else if (chain->pages >= m_world.bounds.pages || chain->sinceBeginning.hasPassed(m_world.bounds.time))
        chain->completion(unreadable());
    else
        fetchPage(chain, page.nextCursor);
}

void PagedRevenueService::finish(const Chain &chain) const
{
    m_world.log.line(summary(chain.query, chain.totals));
    chain.completion({ format(chain.query.metric, chain.totals.totals(), displayedCurrency(chain.query)) });
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
