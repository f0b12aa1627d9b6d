#include "revenue/DodoService.h"

#include "platform/Clock.h"
#include "platform/InternetDateTime.h"
#include "platform/UserRegion.h"
#include "platform/net/Json.h"
#include "revenue/Periods.h"

#include <QUrl>

#include <cmath>

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

/// A period as it is at each moment at which it is asked. The zone is looked at once a second only: where the
/// clock is put forward or back, or a day begins, it does so with a full second.
class PresentPeriod {
public:
    PresentPeriod(RevenueMode period, const Clock &clock, const UserRegion &region)
        : m_period(period)
        , m_clock(clock)
        , m_region(region)
    {
    }

    bool contains(Instant moment)
    {
        const Instant now = m_clock.now();
        const Instant second{ std::floor(now.secondsSince2001) };
        if (m_second != second) {
            m_second = second;
            m_span = Periods::spanAt(m_period, second, m_region);
        }
        Periods::Span span = m_span;
        if (m_period == RevenueMode::Week) // It begins at the present time of day, the others with midnight.
            span.begin = span.begin->advanced(now.secondsSince2001 - second.secondsSince2001);
        return span.contains(moment);
    }

private:
    RevenueMode m_period;
    const Clock &m_clock;
    const UserRegion &m_region;
    std::optional<Instant> m_second; ///< the full one at which it was looked at last
    Periods::Span m_span;
};

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
    if (period == RevenueMode::AllTime)
        return [](Instant) { return true; };
    // Against the moment at which each payment is looked at, not that of the page.
    return [present = PresentPeriod(period, world().clock, world().region)](
               Instant created) mutable { return present.contains(created); };
}

QString DodoService::summary(const RevenueQuery &query, const RevenueAccumulator &totals) const
{
    return "Dodo ["_L1 + choicesText(query) + u'/' + query.currency + "]: "_L1
        + QString::number(totals.totalAmount) + u"¢, "_s + QString::number(totals.orderCount) + " orders"_L1;
}

} // namespace glimmet
