#include "platform/WallClock.h"

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
    return QDateTime::fromMSecsSinceEpoch(milliseconds).toUTC().toString(Qt::ISODate);
}

/// When the clock of a zone shows a minute: once, or "first, last".
QString moments(const char *zone, const WallClock::Minute &minute)
{
    const auto [first, last] = WallClock::momentsOf(minute, FixedRegion("en_US", zone));
    return first == last ? utc(first) : utc(first) + u", "_s + utc(last);
}

WallClock::Minute minute(const char *zone, const QString &iso)
{
    return WallClock::minuteAt(instantAt(iso), FixedRegion("en_US", zone));
}

TEST(WallClock, showsTheMinuteOfTheUsersZone)
{
    const QString moment = u"2026-05-04T20:45:59.999Z"_s;

    EXPECT_EQ(minute("UTC", moment), (WallClock::Minute{ QDate(2026, 5, 4), 20, 45 }));
    EXPECT_EQ(minute("Asia/Kolkata", moment), (WallClock::Minute{ QDate(2026, 5, 5), 2, 15 }));
    EXPECT_EQ(minute("America/New_York", moment), (WallClock::Minute{ QDate(2026, 5, 4), 16, 45 }));
}

TEST(WallClock, showsTheMinuteBefore1970)
{
    EXPECT_EQ(minute("UTC", u"1969-12-31T23:59:59.5Z"_s), (WallClock::Minute{ QDate(1969, 12, 31), 23, 59 }));
}

TEST(WallClock, showsAMinuteOnce)
{
    EXPECT_EQ(moments("Europe/Berlin", { QDate(2026, 5, 4), 9, 5 }), u"2026-05-04T07:05:00Z"_s);
    EXPECT_EQ(moments("Europe/Berlin", { QDate(2026, 1, 4), 9, 5 }), u"2026-01-04T08:05:00Z"_s);
}

TEST(WallClock, showsAMinuteTwiceWhereItIsPutBack)
{
    EXPECT_EQ(moments("Europe/Berlin", { QDate(2026, 10, 25), 2, 30 }),
        u"2026-10-25T00:30:00Z, 2026-10-25T01:30:00Z"_s);
    EXPECT_EQ(moments("America/New_York", { QDate(2026, 11, 1), 1, 0 }),
        u"2026-11-01T05:00:00Z, 2026-11-01T06:00:00Z"_s);
    EXPECT_EQ(moments("Europe/Berlin", { QDate(2026, 10, 25), 1, 59 }), u"2026-10-24T23:59:00Z"_s);
    EXPECT_EQ(moments("Europe/Berlin", { QDate(2026, 10, 25), 3, 0 }), u"2026-10-25T02:00:00Z"_s);
}

TEST(WallClock, skipsTheMinutesWhereItIsPutForward)
{
    EXPECT_EQ(moments("Europe/Berlin", { QDate(2026, 3, 29), 2, 30 }), u"2026-03-29T01:30:00Z"_s);
    EXPECT_EQ(
        minute("Europe/Berlin", u"2026-03-29T01:30:00Z"_s), (WallClock::Minute{ QDate(2026, 3, 29), 3, 30 }));
    EXPECT_EQ(moments("Europe/Berlin", { QDate(2026, 3, 29), 1, 59 }), u"2026-03-29T00:59:00Z"_s);
    EXPECT_EQ(moments("Europe/Berlin", { QDate(2026, 3, 29), 3, 0 }), u"2026-03-29T01:00:00Z"_s);
}

TEST(WallClock, leadsBackToTheMomentOfEveryHourOfAYear)
{
    for (const char *zone : { "Europe/London", "Australia/Lord_Howe", "Asia/Kathmandu" }) {
        const FixedRegion region("en_US", zone);
        const Instant start = instantAt(u"2026-01-01T00:15:00Z"_s);
        for (int hour = 0; hour < 365 * 24; ++hour) {
            const Instant moment = start.advanced(3600.0 * hour);
            const auto [first, last] = WallClock::momentsOf(WallClock::minuteAt(moment, region), region);
            ASSERT_TRUE(first == moment || last == moment) << zone << " " << qPrintable(utc(moment));
        }
    }
}

} // namespace
} // namespace glimmet
