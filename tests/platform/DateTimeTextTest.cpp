#include "platform/DateTimeText.h"

#include "tests/support/FixedRegion.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

QString at(const QString &iso, const char *locale, const char *zone = "UTC")
{
    return mediumDateTimeText(instantAt(iso), FixedRegion(locale, zone));
}

TEST(DateTimeText, isAMediumDateWithAShortTime)
{
    const QString moment = u"2026-05-04T14:05:07Z"_s;

    EXPECT_EQ(at(moment, "en_US"), u"May 4, 2026, 2:05\u202FPM"_s);
    EXPECT_EQ(at(moment, "en_GB"), u"4 May 2026, 14:05"_s);
    EXPECT_EQ(at(moment, "de_DE"), u"04.05.2026, 14:05"_s);
    EXPECT_EQ(at(moment, "ja_JP"), u"2026/05/04 14:05"_s);
}

TEST(DateTimeText, hasTheLocalesDigitsButTheGregorianCalendar)
{
    const QString moment = u"2026-05-04T14:05:07Z"_s;

    EXPECT_EQ(at(moment, "fa_IR"), u"۴ مه ۲۰۲۶، ۱۴:۰۵"_s);
    EXPECT_EQ(at(moment, "ar_EG"), u"٠٤\u200F/٠٥\u200F/٢٠٢٦، ٢:٠٥ م"_s);
    EXPECT_EQ(at(moment, "th_TH"), u"4 พ.ค. 2026 14:05"_s);
}

TEST(DateTimeText, isTheUsersWallClock)
{
    EXPECT_EQ(at(u"2026-05-04T22:05:07Z"_s, "en_GB", "Europe/Berlin"), u"5 May 2026, 00:05"_s);
    EXPECT_EQ(at(u"2026-05-04T02:05:07Z"_s, "en_GB", "America/New_York"), u"3 May 2026, 22:05"_s);
}

TEST(DateTimeText, followsTheChangeOfTheClock)
{
    EXPECT_EQ(at(u"2026-03-29T00:59:59Z"_s, "en_GB", "Europe/Berlin"), u"29 Mar 2026, 01:59"_s);
    EXPECT_EQ(at(u"2026-03-29T01:00:00Z"_s, "en_GB", "Europe/Berlin"), u"29 Mar 2026, 03:00"_s);
    EXPECT_EQ(at(u"2026-10-25T00:30:00Z"_s, "en_GB", "Europe/Berlin"), u"25 Oct 2026, 02:30"_s);
    EXPECT_EQ(at(u"2026-10-25T01:30:00Z"_s, "en_GB", "Europe/Berlin"), u"25 Oct 2026, 02:30"_s);
}

TEST(DateTimeText, survivesMomentsBeyondEveryCalendar)
{
    for (const double seconds : { 1e15, -1e15, 1e300, -1e300 })
        EXPECT_FALSE(mediumDateTimeText(Instant{ seconds }, FixedRegion("en_US", "UTC")).isEmpty());
}

TEST(DateTimeText, isTheTimeAloneOfAMomentOfToday)
{
    const Instant moment = instantAt(u"2026-05-04T14:05:07Z"_s);
    const Instant tonight = instantAt(u"2026-05-04T23:59:59Z"_s);

    EXPECT_EQ(recentTimeText(moment, tonight, FixedRegion("en_US", "UTC")), u"2:05\u202FPM"_s);
    EXPECT_EQ(recentTimeText(moment, tonight, FixedRegion("de_DE", "UTC")), u"14:05"_s);
    EXPECT_EQ(recentTimeText(moment, tonight, FixedRegion("fa_IR", "UTC")), u"۱۴:۰۵"_s);
    EXPECT_EQ(recentTimeText(moment, moment, FixedRegion("en_GB", "Europe/Berlin")), u"16:05"_s);
}

TEST(DateTimeText, hasADateWhereTheMomentIsOfAnotherDayOfTheUsers)
{
    const Instant moment = instantAt(u"2026-05-04T14:05:07Z"_s);
    const Instant tonight = instantAt(u"2026-05-04T23:59:59Z"_s);
    const Instant tomorrow = tonight.advanced(1);

    EXPECT_EQ(recentTimeText(moment, tomorrow, FixedRegion("en_GB", "UTC")), u"4 May 2026, 14:05"_s);
    EXPECT_EQ(recentTimeText(tomorrow, moment, FixedRegion("en_GB", "UTC")), u"5 May 2026, 00:00"_s);
    EXPECT_EQ(recentTimeText(moment, tonight, FixedRegion("en_GB", "Europe/Berlin")), u"4 May 2026, 16:05"_s);
    EXPECT_EQ(recentTimeText(moment, tomorrow, FixedRegion("en_GB", "America/New_York")), u"10:05"_s);
}

TEST(DateTimeText, namesADayInFull)
{
    EXPECT_EQ(fullDateText(QDate(2026, 5, 4), "en_US"), u"Monday, May 4, 2026"_s);
    EXPECT_EQ(fullDateText(QDate(2026, 5, 4), "en_GB"), u"Monday, 4 May 2026"_s);
    EXPECT_EQ(fullDateText(QDate(2026, 5, 4), "de_DE"), u"Montag, 4. Mai 2026"_s);
    EXPECT_EQ(fullDateText(QDate(2026, 5, 4), "ja_JP"), u"2026年5月4日月曜日"_s);
}

TEST(DateTimeText, titlesAMonth)
{
    EXPECT_EQ(monthText(QDate(2026, 5, 31), "en_US"), u"May 2026"_s);
    EXPECT_EQ(monthText(QDate(2026, 5, 1), "de_DE"), u"Mai 2026"_s);
    EXPECT_EQ(monthText(QDate(2026, 5, 1), "ja_JP"), u"2026年5月"_s);
    EXPECT_EQ(monthText(QDate(2026, 5, 1), "ar_EG"), u"مايو ٢٠٢٦"_s);
}

} // namespace
} // namespace glimmet
