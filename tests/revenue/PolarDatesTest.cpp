#include "revenue/PolarService.h"

#include "platform/net/HttpClient.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FixedRegion.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <QLocale>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// The days that a period asks for. It is 2026-11-20 15:30:00 in New York.
class PolarDates : public testing::Test {
protected:
    PolarDates() { clock.set(instantAt(u"2026-11-20T20:30:00Z"_s)); }
    QString asked(RevenueMode period) const
    {
        const PolarService::DateRange range = polar.dateRange(period);
        return range.start + u' ' + range.end + u' ' + range.interval;
    }

    ManualClock clock;
    FixedRegion region{ "en_US", "America/New_York" };
    CapturedLog log;
    HttpClient http;
    PolarService polar{ { http, log.log(), clock, clock, region, PolarService::liveEndpoint } };
};

TEST_F(PolarDates, areTheDaysOfThePeriod)
{
    EXPECT_EQ(asked(RevenueMode::Today), u"2026-11-20 2026-11-20 day"_s);
    EXPECT_EQ(asked(RevenueMode::Week), u"2026-11-13 2026-11-20 day"_s);
    EXPECT_EQ(asked(RevenueMode::Month), u"2026-11-01 2026-11-20 day"_s);
    EXPECT_EQ(asked(RevenueMode::AllTime), u"2020-01-01 2026-11-20 year"_s);
}

TEST_F(PolarDates, areRightOnTheLastDayOfAMonth)
{
    clock.set(instantAt(u"2027-02-01T04:59:59Z"_s));

    EXPECT_EQ(asked(RevenueMode::Week), u"2027-01-24 2027-01-31 day"_s);
    EXPECT_EQ(asked(RevenueMode::Month), u"2027-01-01 2027-01-31 day"_s);
    EXPECT_EQ(asked(RevenueMode::AllTime), u"2020-01-01 2027-01-31 year"_s);
}

TEST_F(PolarDates, areRightAroundLeapDaysAndNewYear)
{
    clock.set(instantAt(u"2028-03-01T12:00:00Z"_s));
    EXPECT_EQ(asked(RevenueMode::Week), u"2028-02-23 2028-03-01 day"_s);
    clock.set(instantAt(u"2028-03-07T12:00:00Z"_s));
    EXPECT_EQ(asked(RevenueMode::Week), u"2028-02-29 2028-03-07 day"_s);
    clock.set(instantAt(u"2027-01-01T05:00:00Z"_s));
    EXPECT_EQ(asked(RevenueMode::Week), u"2026-12-25 2027-01-01 day"_s);
    EXPECT_EQ(asked(RevenueMode::Month), u"2027-01-01 2027-01-01 day"_s);
}

TEST_F(PolarDates, followTheUsersMidnight)
{
    clock.set(instantAt(u"2026-11-21T04:59:59Z"_s));
    EXPECT_EQ(asked(RevenueMode::Today), u"2026-11-20 2026-11-20 day"_s);
    clock.advance(1);
    EXPECT_EQ(asked(RevenueMode::Today), u"2026-11-21 2026-11-21 day"_s);
}

TEST_F(PolarDates, followTheUsersZone)
{
    region.setZone("Asia/Kolkata");
    EXPECT_EQ(asked(RevenueMode::Today), u"2026-11-21 2026-11-21 day"_s);
    region.setZone("Pacific/Auckland");
    EXPECT_EQ(asked(RevenueMode::Week), u"2026-11-14 2026-11-21 day"_s);
    region.setZone("Pacific/Pago_Pago");
    EXPECT_EQ(asked(RevenueMode::Today), u"2026-11-20 2026-11-20 day"_s);
}

TEST_F(PolarDates, areSevenDaysApartOverAWeekInWhichTheClockChanges)
{
    clock.set(instantAt(u"2026-03-15T04:30:00Z"_s)); // half past midnight; the hour was skipped on the 8th
    EXPECT_EQ(asked(RevenueMode::Week), u"2026-03-08 2026-03-15 day"_s);
    clock.set(instantAt(u"2026-11-08T05:30:00Z"_s));
    EXPECT_EQ(asked(RevenueMode::Week), u"2026-11-01 2026-11-08 day"_s);
    clock.set(instantAt(u"2026-11-08T04:30:00Z"_s));
    EXPECT_EQ(asked(RevenueMode::Week), u"2026-10-31 2026-11-07 day"_s);
}

TEST_F(PolarDates, haveAsciiDigitsAndTheGregorianYearWhateverTheLocale)
{
    for (const char *locale : { "ar_EG", "fa_IR", "th_TH", "ne_NP" }) {
        QLocale::setDefault(QLocale(QLatin1StringView(locale)));
        region.setLocale(locale);

        EXPECT_EQ(asked(RevenueMode::Month), u"2026-11-01 2026-11-20 day"_s) << locale;
    }
    QLocale::setDefault(QLocale::c());
}

} // namespace
} // namespace glimmet
