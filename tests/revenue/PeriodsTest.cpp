#include "revenue/Periods.h"

#include "tests/support/FixedRegion.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <QDateTime>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

QString utc(Instant moment)
{
    const auto milliseconds = static_cast<qint64>(moment.unixMilliseconds());
    return QDateTime::fromMSecsSinceEpoch(milliseconds).toUTC().toString(Qt::ISODateWithMs);
}

/// When the period that goes on at `now` began, in UTC.
QString beginning(RevenueMode period, const QByteArray &zone, const QString &now)
{
    const auto cutoff = Periods::cutoffDate(period, instantAt(now), FixedRegion("en_US", zone));
    return cutoff ? utc(*cutoff) : u"never"_s;
}

QString beginningOfToday(const QByteArray &zone, const QString &now)
{
    return beginning(RevenueMode::Today, zone, now);
}

QString beginningOfWeek(const QByteArray &zone, const QString &now)
{
    return beginning(RevenueMode::Week, zone, now);
}

QString beginningOfMonth(const QByteArray &zone, const QString &now)
{
    return beginning(RevenueMode::Month, zone, now);
}

TEST(Periods, beginAtTheUsersMidnightForToday)
{
    const QString now = u"2026-11-20T20:30:00Z"_s;

    EXPECT_EQ(beginningOfToday("America/New_York", now), u"2026-11-20T05:00:00.000Z"_s);
    EXPECT_EQ(beginningOfToday("Asia/Kolkata", now), u"2026-11-20T18:30:00.000Z"_s);
    EXPECT_EQ(beginningOfToday("Pacific/Auckland", now), u"2026-11-20T11:00:00.000Z"_s);
    EXPECT_EQ(beginningOfToday("Asia/Kathmandu", now), u"2026-11-20T18:15:00.000Z"_s);
    EXPECT_EQ(beginningOfToday("UTC", now), u"2026-11-20T00:00:00.000Z"_s);
}

TEST(Periods, beginSevenDaysAgoToTheMomentForTheWeek)
{
    const QString now = u"2026-11-20T20:30:07.250Z"_s;

    for (const char *zone : { "America/New_York", "Asia/Kolkata", "Pacific/Auckland" })
        EXPECT_EQ(beginningOfWeek(zone, now), u"2026-11-13T20:30:07.250Z"_s) << zone;
}

TEST(Periods, beginWithTheFirstDayOfTheMonthForTheMonth)
{
    const QString now = u"2026-11-20T20:30:00Z"_s;

    EXPECT_EQ(beginningOfMonth("Asia/Kolkata", now), u"2026-10-31T18:30:00.000Z"_s);
    EXPECT_EQ(beginningOfMonth("Pacific/Auckland", now), u"2026-10-31T11:00:00.000Z"_s);
    // Before the clock was put back, twenty days ago.
    EXPECT_EQ(beginningOfMonth("America/New_York", now), u"2026-11-01T04:00:00.000Z"_s);
}

TEST(Periods, neverBeginForAllTime)
{
    EXPECT_EQ(beginning(RevenueMode::AllTime, "Asia/Kolkata", u"2026-11-20T20:30:00Z"_s), u"never"_s);
}

TEST(Periods, changeAtMidnightAndNotBefore)
{
    EXPECT_EQ(
        beginningOfToday("America/New_York", u"2026-11-21T04:59:59.999Z"_s), u"2026-11-20T05:00:00.000Z"_s);
    EXPECT_EQ(beginningOfToday("America/New_York", u"2026-11-21T05:00:00Z"_s), u"2026-11-21T05:00:00.000Z"_s);
    EXPECT_EQ(beginningOfMonth("Asia/Kolkata", u"2026-11-30T18:29:59.999Z"_s), u"2026-10-31T18:30:00.000Z"_s);
    EXPECT_EQ(beginningOfMonth("Asia/Kolkata", u"2026-11-30T18:30:00Z"_s), u"2026-11-30T18:30:00.000Z"_s);
}

TEST(Periods, endWithTheMonthsOwnLastDay)
{
    EXPECT_EQ(beginningOfMonth("UTC", u"2026-02-28T23:59:59Z"_s), u"2026-02-01T00:00:00.000Z"_s);
    EXPECT_EQ(beginningOfMonth("UTC", u"2026-03-01T00:00:00Z"_s), u"2026-03-01T00:00:00.000Z"_s);
    EXPECT_EQ(beginningOfToday("UTC", u"2028-02-29T12:00:00Z"_s), u"2028-02-29T00:00:00.000Z"_s);
    EXPECT_EQ(beginningOfMonth("UTC", u"2028-02-29T12:00:00Z"_s), u"2028-02-01T00:00:00.000Z"_s);
    EXPECT_EQ(beginningOfWeek("UTC", u"2028-03-07T12:00:00Z"_s), u"2028-02-29T12:00:00.000Z"_s);
    EXPECT_EQ(beginningOfWeek("UTC", u"2026-03-07T12:00:00Z"_s), u"2026-02-28T12:00:00.000Z"_s);
}

TEST(Periods, reachOverTheYearsEnd)
{
    EXPECT_EQ(beginningOfWeek("Pacific/Auckland", u"2027-01-02T20:00:00Z"_s), u"2026-12-26T20:00:00.000Z"_s);
    EXPECT_EQ(beginningOfMonth("Pacific/Auckland", u"2026-12-31T11:00:00Z"_s), u"2026-12-31T11:00:00.000Z"_s);
    EXPECT_EQ(beginningOfMonth("Pacific/Auckland", u"2026-12-31T10:59:59Z"_s), u"2026-11-30T11:00:00.000Z"_s);
}

TEST(Periods, beginAtMidnightOnDaysOfOtherLengths)
{
    // 23 hours long, then 25.
    EXPECT_EQ(beginningOfToday("America/New_York", u"2026-03-09T03:59:59Z"_s), u"2026-03-08T05:00:00.000Z"_s);
    EXPECT_EQ(beginningOfToday("America/New_York", u"2026-11-02T04:59:59Z"_s), u"2026-11-01T04:00:00.000Z"_s);
    EXPECT_EQ(beginningOfToday("Pacific/Auckland", u"2026-04-05T11:59:59Z"_s), u"2026-04-04T11:00:00.000Z"_s);
    EXPECT_EQ(beginningOfToday("Pacific/Auckland", u"2026-09-27T10:59:59Z"_s), u"2026-09-26T12:00:00.000Z"_s);
}

TEST(Periods, beginWithTheDaysFirstMomentWhereMidnightDoesNotExist)
{
    EXPECT_EQ(beginningOfToday("America/Santiago", u"2026-09-06T15:00:00Z"_s), u"2026-09-06T04:00:00.000Z"_s);
    EXPECT_EQ(beginningOfToday("Asia/Beirut", u"2026-03-29T12:00:00Z"_s), u"2026-03-28T22:00:00.000Z"_s);
    EXPECT_EQ(beginningOfToday("Africa/Cairo", u"2026-04-24T12:00:00Z"_s), u"2026-04-23T22:00:00.000Z"_s);
    EXPECT_EQ(beginningOfMonth("America/Asuncion", u"2023-10-20T12:00:00Z"_s), u"2023-10-01T04:00:00.000Z"_s);
}

TEST(Periods, beginWithTheFirstOfTwoMidnights)
{
    EXPECT_EQ(beginningOfToday("America/Havana", u"2026-11-01T15:00:00Z"_s), u"2026-11-01T04:00:00.000Z"_s);
    EXPECT_EQ(beginningOfToday("America/Havana", u"2026-11-01T04:30:00Z"_s), u"2026-11-01T04:00:00.000Z"_s);
    EXPECT_EQ(beginningOfMonth("America/Havana", u"2026-11-20T15:00:00Z"_s), u"2026-11-01T04:00:00.000Z"_s);
}

TEST(Periods, keepTheTimeOfDayOverAWeekInWhichTheClockChanges)
{
    EXPECT_EQ(beginningOfWeek("America/New_York", u"2026-03-10T16:00:00Z"_s), u"2026-03-03T17:00:00.000Z"_s);
    EXPECT_EQ(beginningOfWeek("America/New_York", u"2026-11-05T17:00:00Z"_s), u"2026-10-29T16:00:00.000Z"_s);
    EXPECT_EQ(beginningOfWeek("Pacific/Auckland", u"2026-09-29T23:00:00Z"_s), u"2026-09-23T00:00:00.000Z"_s);
    EXPECT_EQ(
        beginningOfWeek("Australia/Lord_Howe", u"2026-04-09T01:30:00Z"_s), u"2026-04-02T01:00:00.000Z"_s);
}

TEST(Periods, beginBehindTheGapWhereTheTimeOfDayDidNotExistAWeekAgo)
{
    // 02:30 today; a week ago the clock went from 02:00 to 03:00.
    EXPECT_EQ(beginningOfWeek("America/New_York", u"2026-03-15T06:30:00Z"_s), u"2026-03-08T07:30:00.000Z"_s);
}

TEST(Periods, beginWholeDaysAgoWhereTheTimeOfDayWasTwiceAWeekAgo)
{
    // 01:30 in standard time; a week ago it was 01:30 in both.
    EXPECT_EQ(beginningOfWeek("America/New_York", u"2026-11-08T06:30:00Z"_s), u"2026-11-01T06:30:00.000Z"_s);
}

TEST(Periods, followTheZoneWhereItChanges)
{
    FixedRegion region("en_US", "America/New_York");
    const Instant now = instantAt(u"2026-11-20T20:30:00Z"_s);
    const auto beginningNow = [&] { return utc(*Periods::cutoffDate(RevenueMode::Today, now, region)); };
    ASSERT_EQ(beginningNow(), u"2026-11-20T05:00:00.000Z"_s);

    region.setZone("Asia/Kolkata");

    EXPECT_EQ(beginningNow(), u"2026-11-20T18:30:00.000Z"_s);
    EXPECT_EQ(Periods::dateAt(now, region), QDate(2026, 11, 21));
}

TEST(Periods, areInTheGregorianCalendarWhateverTheLocale)
{
    const Instant now = instantAt(u"2026-11-20T20:30:00Z"_s);

    for (const char *locale : { "th_TH@calendar=buddhist", "fa_IR", "ar_SA@calendar=islamic" })
        EXPECT_EQ(Periods::dateAt(now, FixedRegion(locale, "UTC")), QDate(2026, 11, 20)) << locale;
}

TEST(DateAt, isTheUsersAlsoBefore1970)
{
    EXPECT_EQ(Periods::dateAt(instantAt(u"1969-12-31T23:59:59Z"_s), FixedRegion("en_US", "UTC")),
        QDate(1969, 12, 31));
    EXPECT_EQ(Periods::dateAt(instantAt(u"1970-01-01T00:00:00Z"_s), FixedRegion("en_US", "America/New_York")),
        QDate(1969, 12, 31));
}

} // namespace
} // namespace glimmet
