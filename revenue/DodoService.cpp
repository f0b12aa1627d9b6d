#include "revenue/DodoService.h"

#include "platform/Clock.h"
#include "platform/InternetDateTime.h"
#include "platform/UserRegion.h"
#include "platform/net/Json.h"
#include "revenue/Periods.h"

#include <QUrl>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

std::optional<Instant> creationTime(const JsonValue &payment)
{
    const auto text = payment["created_at"].text();
    return text ? parseInternetDateTime(*text) : std::nullopt;
}

bool counts(const JsonValue &payment, const QString &currency)
{
    const auto paidIn = payment["currency"].text();
    return payment["status"].text() == u"succeeded"_s && paidIn && paidIn->toUpper() == currency;
}

} // namespace

DodoService::DodoService(const ServiceWorld &world, QObject *parent)
    : PagedRevenueService(world, { .service = u"Dodo"_s, .body = u"page"_s, .headLength = 300 }, parent)
{
}

QByteArray DodoService::pageAddress(const std::optional<QString> &cursor) const
{
    QByteArray address = world().endpoint + "/payments?page_size=100";
    if (cursor)
        address += "&starting_after=" + QUrl::toPercentEncoding(*cursor);
    return address;
}

PagedRevenueService::PageParser DodoService::pageParser(
    const RevenueQuery &query, const std::optional<QString> &) const
{
    return [currency = query.currency](const JsonValue &answer) { return parsePage(answer, currency); };
}

std::optional<RevenuePage> DodoService::parsePage(const JsonValue &answer, const QString &currency)
{
    const auto payments = answer["items"].listOfObjects();
    if (!payments)
        return std::nullopt;
    RevenuePage page;
    for (const JsonValue &payment : *payments)
        if (counts(payment, currency))
            page.orders.push_back({ creationTime(payment), Amount(payment["total_amount"]) });
    page.nextCursor = answer["next_cursor"].text();
    return page;
}

std::function<bool(Instant)> DodoService::periodTest(RevenueMode period) const
{
    // Against the moment at which each payment is looked at, not that of the page.
    return [this, period](Instant created) { return isInMode(created, period); };
}

bool DodoService::isInMode(Instant created, RevenueMode period) const
{
    const Instant now = world().clock.now();
    if (period == RevenueMode::Today)
        return Periods::dateAt(created, world().region) == Periods::dateAt(now, world().region);
    const auto cutoff = Periods::cutoffDate(period, now, world().region);
    return !cutoff || created >= *cutoff;
}

QString DodoService::summary(const RevenueQuery &query, const RevenueAccumulator &totals) const
{
    return "Dodo ["_L1 + choicesText(query) + u'/' + query.currency + "]: "_L1
        + QString::number(totals.totalAmount) + u"¢, "_s + QString::number(totals.orderCount) + " orders"_L1;
}

} // namespace glimmet
