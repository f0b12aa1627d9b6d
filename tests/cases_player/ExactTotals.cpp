#include "tests/cases_player/ExactTotals.h"

#include "platform/DiagnosticLog.h"
#include "platform/Text.h"
#include "platform/net/Json.h"
#include "revenue/DodoService.h"
#include "revenue/LemonSqueezyService.h"
#include "revenue/Periods.h"
#include "revenue/PolarService.h"
#include "revenue/RevenueCatService.h"
#include "revenue/StripeService.h"
#include "tests/support/FixedRegion.h"

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

std::optional<RevenuePage> pageIn(const AnswerCase &played, qsizetype index)
{
    const auto document = JsonDocument::read(played.pages[index].answer.body);
    if (!document)
        return std::nullopt;
    const QString currency = trimmedBlanks(played.currency.value_or(u"USD"_s));
    if (played.provider() == RevenueProvider::Stripe)
        return StripeService::parsePage(document->root(), currency.toLower());
    if (played.provider() == RevenueProvider::Dodo)
        return DodoService::parsePage(document->root(), currency.toUpper());
    return LemonSqueezyService::parsePage(document->root(), index + 1);
}

std::function<bool(Instant)> periodTest(
    const AnswerCase &played, RevenueMode period, const UserRegion &region)
{
    if (played.provider() == RevenueProvider::Dodo && period == RevenueMode::Today)
        return [&region, today = Periods::dateAt(played.now, region)](
                   Instant created) { return Periods::dateAt(created, region) == today; };
    const auto cutoff = Periods::cutoffDate(period, played.now, region);
    return [cutoff](Instant created) { return !cutoff || created >= *cutoff; };
}

RevenueTotals pagedTotals(const AnswerCase &played, RevenueMode period)
{
    const FixedRegion region("en_US", played.zone);
    const auto isInPeriod = periodTest(played, period, region);
    RevenueAccumulator accumulator;
    for (qsizetype i = 0; i < played.pages.size(); ++i)
        if (const auto page = pageIn(played, i))
            accumulator = fold(page->orders, accumulator, isInPeriod);
    return accumulator.totals();
}

RevenueTotals polarTotals(const AnswerCase &played)
{
    DiagnosticLog nowhere(-1);
    return PolarService::parse(played.pages.value(0).answer.body, nowhere);
}

/// The answer's metrics, and 0 for each that is asked about and that the answer lacks.
CaseTotals revenueCatTotals(const AnswerCase &played, RevenueMode period)
{
    CaseTotals metrics = RevenueCatService::parse(played.pages.value(0).answer.body).value_or(CaseTotals());
    for (const QString &id : played.totals.value(period).keys())
        if (!metrics.contains(id))
            metrics.insert(id, 0);
    return metrics;
}

} // namespace

CaseTotals exactTotals(const AnswerCase &played, RevenueMode period)
{
    if (played.provider() == RevenueProvider::RevenueCat)
        return revenueCatTotals(played, period);
    const RevenueTotals totals =
        played.provider() == RevenueProvider::Polar ? polarTotals(played) : pagedTotals(played, period);
    return { { u"total"_s, totals.revenue }, { u"count"_s, totals.orders }, { u"max"_s, totals.max } };
}

} // namespace glimmet
