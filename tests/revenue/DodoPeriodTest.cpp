#include "revenue/Periods.h"
#include "tests/revenue/ServedRevenue.h"

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

using enum RevenueProvider;

/// A clock that goes on by the same step each time that it is asked.
class SteppingClock final : public Clock {
public:
    SteppingClock(const QString &first, double step)
        : m_next(instantAt(first))
        , m_step(step)
    {
    }
    Instant now() const override
    {
        const Instant now = m_next;
        m_next = m_next.advanced(m_step);
        return now;
    }

private:
    mutable Instant m_next;
    double m_step; // seconds
};

/// A region that knows how often its zone was looked at.
class CountingRegion final : public UserRegion {
public:
    explicit CountingRegion(const UserRegion &region)
        : m_region(region)
    {
    }
    QByteArray localeName() const override { return m_region.localeName(); }
    int utcOffset(Instant moment) const override
    {
        ++looks;
        return m_region.utcOffset(moment);
    }

    mutable int looks = 0;

private:
    const UserRegion &m_region;
};

/// Payments of one page that are looked at one after the other while time passes.
class DodoPeriod : public ServedRevenue {
protected:
    /// The sum in cents of the payments that count; the first is one of 1 cent, each further one of twice as
    /// much, and the 33rd is of 1 cent again.
    QString counted(RevenueMode period, const Clock &passing, const QStringList &created)
    {
        QByteArray payments;
        for (qsizetype i = 0; i < created.size(); ++i)
            payments += QByteArray(i == 0 ? "" : ",")
                + R"({"status":"succeeded","currency":"usd","total_amount":)"
                + QByteArray::number(qint64(1) << (i % 32)) + R"(,"created_at":")" + created[i].toUtf8()
                + "\"}";
        answer = [payments](const ReceivedRequest &) {
            return ServerAnswer{ .body = R"({"items":[)" + payments + "]}" };
        };
        services.emplace(*http, log.log(), passing, clock, counting, endpointsAt(server.origin()));
        RevenueQuery dodo = query(Dodo);
        dodo.period = period;
        return fetched(dodo);
    }

    CountingRegion counting{ region };
};

TEST_F(DodoPeriod, looksAtTheZoneNoMoreForAHundredPaymentsThanForOne)
{
    const SteppingClock running(u"2026-11-20T20:30:00Z"_s, 0.001);
    for (const RevenueMode period : { RevenueMode::Today, RevenueMode::Week, RevenueMode::Month }) {
        counting.looks = 0;
        counted(period, running, { u"2026-11-20T12:00:00Z"_s });
        const int looksForOne = counting.looks;

        counting.looks = 0;
        counted(period, running, QStringList(100, u"2026-11-20T12:00:00Z"_s));

        EXPECT_GT(looksForOne, 0);
        EXPECT_EQ(counting.looks, looksForOne);
    }
}

TEST_F(DodoPeriod, doesNotLookAtItForAllTime)
{
    const SteppingClock running(u"2026-11-20T20:30:00Z"_s, 1);

    EXPECT_EQ(counted(RevenueMode::AllTime, running, { u"1999-12-31T12:00:00Z"_s }), u"💰 $0.01"_s);
    EXPECT_EQ(counting.looks, 0);
}

TEST_F(DodoPeriod, endsTodayBetweenTwoPayments)
{
    const SteppingClock midnight(u"2026-11-21T04:59:59.500Z"_s, 0.5);
    const QString evening = u"2026-11-21T04:30:00Z"_s;
    const QString night = u"2026-11-21T05:00:00Z"_s;

    // The first is looked at before midnight, the others behind it.
    EXPECT_EQ(counted(RevenueMode::Today, midnight, { evening, evening, night, night }), u"💰 $0.13"_s);
}

TEST_F(DodoPeriod, movesTheWeekOnWithinTheSecond)
{
    const SteppingClock quarters(u"2026-11-20T20:30:00Z"_s, 0.25);
    const QString weekAgo = u"2026-11-13T20:30:00.250Z"_s;

    EXPECT_EQ(
        counted(RevenueMode::Week, quarters, { weekAgo, weekAgo, weekAgo, weekAgo, weekAgo }), u"💰 $0.03"_s);
}

TEST_F(DodoPeriod, beginsTheMonthBetweenTwoPayments)
{
    const SteppingClock newMonth(u"2026-12-01T04:59:59.500Z"_s, 0.5);
    const QString november = u"2026-11-15T12:00:00Z"_s;

    EXPECT_EQ(counted(RevenueMode::Month, newMonth, { november, november }), u"💰 $0.01"_s);
}

TEST_F(DodoPeriod, followsTheClockWhereItIsPutBack)
{
    const SteppingClock back(u"2026-11-21T05:00:00Z"_s, -1);
    const QString evening = u"2026-11-21T04:30:00Z"_s;

    EXPECT_EQ(counted(RevenueMode::Today, back, { evening, evening, evening }), u"💰 $0.06"_s);
}

/// Whether a span of today holds just the moments of its date, an hour apart, around `change`.
void expectTheDateAround(const QByteArray &zone, const QString &change)
{
    const FixedRegion region("en_US", zone);
    const Instant middle = instantAt(change);
    constexpr double hour = 3600;
    for (double now = -30 * hour; now <= 30 * hour; now += 5 * hour) {
        const Instant present = middle.advanced(now);
        const Periods::Span today = Periods::spanAt(RevenueMode::Today, present, region);
        const QDate date = Periods::dateAt(present, region);
        for (double at = -60 * hour; at <= 60 * hour; at += hour / 2)
            for (const double nearby : { -0.001, 0.0 })
                ASSERT_EQ(today.contains(middle.advanced(at + nearby)),
                    Periods::dateAt(middle.advanced(at + nearby), region) == date)
                    << zone.toStdString() << ' ' << now << ' ' << at;
    }
}

TEST(SpanOfToday, isTheUsersDateAlsoWhereTheClockChanges)
{
    expectTheDateAround("UTC", u"2026-11-20T00:00:00Z"_s);
    expectTheDateAround("America/New_York", u"2026-03-08T07:00:00Z"_s);
    expectTheDateAround("America/New_York", u"2026-11-01T06:00:00Z"_s);
    expectTheDateAround("Asia/Beirut", u"2026-03-28T22:00:00Z"_s); // There is no midnight.
    expectTheDateAround("Asia/Beirut", u"2026-10-24T21:00:00Z"_s); // The evening's last hour comes twice.
    expectTheDateAround("America/Santiago", u"2026-09-06T04:00:00Z"_s);
    expectTheDateAround("America/Havana", u"2026-11-01T05:00:00Z"_s); // Midnight comes twice.
    expectTheDateAround("America/Nuuk", u"2026-10-25T01:00:00Z"_s);
    expectTheDateAround("Australia/Lord_Howe", u"2026-04-04T15:00:00Z"_s);
    expectTheDateAround("Pacific/Apia", u"2011-12-30T10:00:00Z"_s); // A whole day is left out.
}

} // namespace
} // namespace glimmet
