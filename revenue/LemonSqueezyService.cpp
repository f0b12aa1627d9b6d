#include "revenue/LemonSqueezyService.h"

#include "platform/CheckedInteger.h"
#include "platform/InternetDateTime.h"
#include "platform/net/Json.h"

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// Pages are asked for by their number.
qint64 pageNumber(const std::optional<QString> &cursor)
{
    return cursor ? cursor->toLongLong() : 1;
}

std::optional<Instant> creationTime(const JsonValue &attributes)
{
    const auto text = attributes["created_at"].text();
    return text ? parseInternetDateTime(*text) : std::nullopt;
}

} // namespace

LemonSqueezyService::LemonSqueezyService(const ServiceWorld &world, QObject *parent)
    : PagedRevenueService(
          world, { .service = u"LemonSqueezy"_s, .body = u"page"_s, .headLength = 300 }, parent)
{
}

QByteArray LemonSqueezyService::pageAddress(const std::optional<QString> &cursor) const
{
    return world().endpoint
        + "/v1/orders?page%5Bsize%5D=100&page%5Bnumber%5D=" + QByteArray::number(pageNumber(cursor));
}

PagedRevenueService::PageParser LemonSqueezyService::pageParser(
    const RevenueQuery &, const std::optional<QString> &cursor) const
{
    return [number = pageNumber(cursor)](const JsonValue &answer) { return parsePage(answer, number); };
}

std::optional<RevenuePage> LemonSqueezyService::parsePage(const JsonValue &answer, qint64 number)
{
    const auto orders = answer["data"].listOfObjects();
    if (!orders)
        return std::nullopt;
    RevenuePage page;
    for (const JsonValue &order : *orders) {
        const JsonValue attributes = order["attributes"];
        if (attributes["status"].text() == u"paid"_s)
            page.orders.push_back({ creationTime(attributes), Amount(attributes["total"]) });
    }
    if (answer["links"]["next"].text())
        page.nextCursor = QString::number(checkedSum(number, 1));
    return page;
}

QString LemonSqueezyService::summary(const RevenueQuery &query, const RevenueAccumulator &totals) const
{
    return "LemonSqueezy ["_L1 + choicesText(query) + "]: "_L1 + QString::number(totals.totalAmount)
        + u"¢, "_s + QString::number(totals.orderCount) + " orders"_L1;
}

} // namespace glimmet
