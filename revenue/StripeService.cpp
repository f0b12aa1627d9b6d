#include "revenue/StripeService.h"

#include "platform/net/Json.h"

#include <QUrl>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

std::optional<Instant> creationTime(const JsonValue &charge)
{
    const auto seconds = charge["created"].integer();
    if (!seconds)
        return std::nullopt;
    return Instant::fromUnixSeconds(static_cast<double>(*seconds));
}

bool counts(const JsonValue &charge, const QString &currency)
{
    return charge["status"].text() == u"succeeded"_s && charge["currency"].text() == currency;
}

} // namespace

StripeService::StripeService(const ServiceWorld &world, QObject *parent)
    : PagedRevenueService(world, { .service = u"Stripe"_s, .body = u"page"_s, .headLength = 300 }, parent)
{
}

QByteArray StripeService::pageAddress(const std::optional<QString> &cursor) const
{
    QByteArray address = world().endpoint + "/v1/charges?limit=100";
    if (cursor)
        address += "&starting_after=" + QUrl::toPercentEncoding(*cursor);
    return address;
}

PagedRevenueService::PageParser StripeService::pageParser(
    const RevenueQuery &query, const std::optional<QString> &) const
{
    return [currency = query.currency](const JsonValue &answer) { return parsePage(answer, currency); };
}

std::optional<RevenuePage> StripeService::parsePage(const JsonValue &answer, const QString &currency)
{
    const auto charges = answer["data"].listOfObjects();
    if (!charges)
        return std::nullopt;
    RevenuePage page;
    JsonValue last;
    for (const JsonValue &charge : *charges) {
        last = charge;
        if (counts(charge, currency))
            page.orders.push_back({ creationTime(charge), Amount(charge["amount"]) });
    }
    if (answer["has_more"].boolean() == true)
        page.nextCursor = last["id"].text();
    return page;
}

QString StripeService::summary(const RevenueQuery &query, const RevenueAccumulator &totals) const
{
    return "Stripe ["_L1 + choicesText(query) + u'/' + query.currency + "]: "_L1
        + QString::number(totals.totalAmount) + u"¢, "_s + QString::number(totals.orderCount) + " charges"_L1;
}

} // namespace glimmet
