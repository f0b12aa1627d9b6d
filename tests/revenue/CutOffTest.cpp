#include "tests/revenue/ServedRevenue.h"

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

using enum RevenueProvider;

/// A clock that is past midnight when it is asked for the second time.
class ClockAtMidnight final : public Clock {
public:
    Instant now() const override
    {
        const Instant justBefore = instantAt(u"2026-11-21T04:59:59Z"_s);
        return m_asked++ == 0 ? justBefore : justBefore.advanced(2);
    }

private:
    mutable int m_asked = 0;
};

/// Orders of one evening that are read while the day ends.
class CutOff : public ServedRevenue {
protected:
    CutOff() { services.emplace(*http, log.log(), midnight, clock, region, endpointsAt(server.origin())); }
    /// Two pages of two orders each, for every platform.
    static ServerAnswer twoPages(const ReceivedRequest &request)
    {
        const QByteArray order = R"({"id":"ch_1","status":"succeeded","currency":"usd","amount":1,
            "created":1795233600,"total_amount":1,"created_at":"2026-11-21T04:00:00Z",
            "attributes":{"status":"paid","total":1,"created_at":"2026-11-21T04:00:00Z"}})";
        const bool isFirst = !request.target.contains("starting_after") && !request.target.endsWith("=2");
        const QByteArray more =
            isFirst ? R"("has_more":true,"links":{"next":"x"},"next_cursor":"x")" : R"("has_more":false)";
        const QByteArray orders = '[' + order + ',' + order + ']';
        return { .body = R"({"data":)" + orders + R"(,"items":)" + orders + ',' + more + '}' };
    }
    QString ordersToday(RevenueProvider provider)
    {
        answer = twoPages;
        RevenueQuery today = query(provider);
        today.period = RevenueMode::Today;
        today.metric = RevenueMetric::Orders;
        return fetched(today);
    }

    ClockAtMidnight midnight;
};

TEST_F(CutOff, isThatOfTheMomentForEachPageOfStripes)
{
    EXPECT_EQ(ordersToday(Stripe), u"🛒 2 orders"_s);
}

TEST_F(CutOff, isThatOfTheMomentForEachPageOfLemonSqueezys)
{
    EXPECT_EQ(ordersToday(LemonSqueezy), u"🛒 2 orders"_s);
}

TEST_F(CutOff, isThatOfTheMomentForEachPaymentOfDodos)
{
    EXPECT_EQ(ordersToday(Dodo), u"🛒 1 orders"_s);
}

/// Each service's choice of orders around the edges of the periods. It is 15:30 in New York.
class PeriodEdge : public ServedRevenue {
protected:
    /// Whether an order made then counts, by Dodo's and by Lemon Squeezy's rules and by Stripe's.
    QList<bool> counts(RevenueMode period, const QString &created)
    {
        const QByteArray seconds = QByteArray::number(qint64(instantAt(created).unixMilliseconds() / 1000));
        const QByteArray order = R"({"status":"succeeded","currency":"usd","created":)" + seconds
            + R"(,"created_at":")" + created.toUtf8() + R"(","attributes":{"status":"paid","created_at":")"
            + created.toUtf8() + R"("}})";
        answer = [order](const ReceivedRequest &) {
            return ServerAnswer{ .body = R"({"data":[)" + order + R"(],"items":[)" + order + "]}" };
        };
        QList<bool> counted;
        for (const RevenueProvider provider : { Dodo, LemonSqueezy, Stripe }) {
            RevenueQuery asked = query(provider);
            asked.period = period;
            asked.metric = RevenueMetric::Orders;
            counted.append(fetched(asked) == u"🛒 1 orders"_s);
        }
        return counted;
    }

    const QList<bool> byAll{ true, true, true };
    const QList<bool> byNone{ false, false, false };
};

TEST_F(PeriodEdge, isMidnightForToday)
{
    EXPECT_EQ(counts(RevenueMode::Today, u"2026-11-20T05:00:00Z"_s), byAll);
    EXPECT_EQ(counts(RevenueMode::Today, u"2026-11-20T04:59:59Z"_s), byNone);
}

TEST_F(PeriodEdge, isSevenDaysAgoForTheWeek)
{
    EXPECT_EQ(counts(RevenueMode::Week, u"2026-11-13T20:30:00Z"_s), byAll);
    EXPECT_EQ(counts(RevenueMode::Week, u"2026-11-13T21:30:00Z"_s), byAll);
    EXPECT_EQ(counts(RevenueMode::Week, u"2026-11-13T20:29:59Z"_s), byNone);
}

TEST_F(PeriodEdge, isTheFirstMidnightForTheMonth)
{
    EXPECT_EQ(counts(RevenueMode::Month, u"2026-11-01T04:00:00Z"_s), byAll);
    EXPECT_EQ(counts(RevenueMode::Month, u"2026-11-01T03:59:59Z"_s), byNone);
}

TEST_F(PeriodEdge, isNowhereForAllTime)
{
    EXPECT_EQ(counts(RevenueMode::AllTime, u"1970-01-02T00:00:00Z"_s), byAll);
}

TEST_F(PeriodEdge, isAlsoTheNextMidnightForDodosToday)
{
    EXPECT_EQ(counts(RevenueMode::Today, u"2026-11-21T04:59:59Z"_s), byAll);
    EXPECT_EQ(counts(RevenueMode::Today, u"2026-11-21T05:00:00Z"_s), (QList<bool>{ false, true, true }));
    EXPECT_EQ(counts(RevenueMode::Week, u"2027-01-01T00:00:00Z"_s), byAll);
}

} // namespace
} // namespace glimmet
