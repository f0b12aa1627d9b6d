#include "platform/DateTimeText.h"

#include "tests/support/FixedRegion.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

constexpr auto hours24 = u"HH:mm:ss";
constexpr auto hours12 = u"h:mm:ss a";

QString at(const QString &iso, const char *locale, const char *zone, const char16_t *pattern)
{
    return clockText(pattern, instantAt(iso), FixedRegion(locale, zone));
}

TEST(ClockText, readsInAmericanEnglish)
{
    EXPECT_EQ(at(u"2026-05-04T08:05:07Z"_s, "en_US", "UTC", hours24), u"08:05:07"_s);
    EXPECT_EQ(at(u"2026-05-04T08:05:07Z"_s, "en_US", "UTC", hours12), u"8:05:07 AM"_s);
    EXPECT_EQ(at(u"2026-05-04T20:05:07Z"_s, "en_US", "UTC", hours12), u"8:05:07 PM"_s);
    EXPECT_EQ(at(u"2026-05-04T20:05:07Z"_s, "en_US", "UTC", u"HH:mm"), u"20:05"_s);
    EXPECT_EQ(at(u"2026-05-04T20:05:07Z"_s, "en_US", "UTC", u"h:mm a"), u"8:05 PM"_s);
}

TEST(ClockText, callsMidnightAndNoonTwelve)
{
    EXPECT_EQ(at(u"2026-05-04T00:00:00Z"_s, "en_US", "UTC", hours12), u"12:00:00 AM"_s);
    EXPECT_EQ(at(u"2026-05-04T12:00:00Z"_s, "en_US", "UTC", hours12), u"12:00:00 PM"_s);
    EXPECT_EQ(at(u"2026-05-04T00:00:00Z"_s, "en_US", "UTC", hours24), u"00:00:00"_s);
}

TEST(ClockText, readsInGerman)
{
    EXPECT_EQ(at(u"2026-05-04T20:05:07Z"_s, "de_DE", "Europe/Berlin", hours24), u"22:05:07"_s);
    EXPECT_EQ(at(u"2026-05-04T20:05:07Z"_s, "de_DE", "Europe/Berlin", hours12), u"10:05:07 PM"_s);
}

TEST(ClockText, readsInThai)
{
    EXPECT_EQ(at(u"2026-05-04T20:05:07Z"_s, "th_TH", "Asia/Bangkok", hours24), u"03:05:07"_s);
    EXPECT_EQ(at(u"2026-05-04T20:05:07Z"_s, "th_TH", "Asia/Bangkok", hours12), u"3:05:07 ก่อนเที่ยง"_s);
}

TEST(ClockText, readsInArabicDigitsAndMarkers)
{
    EXPECT_EQ(at(u"2026-01-04T06:05:07Z"_s, "ar_EG", "Africa/Cairo", hours24), u"٠٨:٠٥:٠٧"_s);
    EXPECT_EQ(at(u"2026-01-04T06:05:07Z"_s, "ar_EG", "Africa/Cairo", hours12), u"٨:٠٥:٠٧ ص"_s);
    EXPECT_EQ(at(u"2026-01-04T18:05:07Z"_s, "ar_EG", "Africa/Cairo", hours12), u"٨:٠٥:٠٧ م"_s);
}

TEST(ClockText, springsForwardInNewYork)
{
    EXPECT_EQ(at(u"2026-03-08T06:59:59Z"_s, "en_US", "America/New_York", hours24), u"01:59:59"_s);
    EXPECT_EQ(at(u"2026-03-08T07:00:00Z"_s, "en_US", "America/New_York", hours24), u"03:00:00"_s);
}

TEST(ClockText, fallsBackInNewYork)
{
    EXPECT_EQ(at(u"2026-11-01T05:59:59Z"_s, "en_US", "America/New_York", hours24), u"01:59:59"_s);
    EXPECT_EQ(at(u"2026-11-01T06:00:00Z"_s, "en_US", "America/New_York", hours24), u"01:00:00"_s);
}

TEST(ClockText, isHalfAnHourOffInKolkata)
{
    EXPECT_EQ(at(u"2026-03-08T18:29:59Z"_s, "en_US", "Asia/Kolkata", hours24), u"23:59:59"_s);
    EXPECT_EQ(at(u"2026-03-08T18:30:00Z"_s, "en_US", "Asia/Kolkata", hours24), u"00:00:00"_s);
}

TEST(ClockText, springsForwardAndFallsBackInAuckland)
{
    EXPECT_EQ(at(u"2026-09-26T13:59:59Z"_s, "en_US", "Pacific/Auckland", hours24), u"01:59:59"_s);
    EXPECT_EQ(at(u"2026-09-26T14:00:00Z"_s, "en_US", "Pacific/Auckland", hours24), u"03:00:00"_s);
    EXPECT_EQ(at(u"2026-04-04T13:59:59Z"_s, "en_US", "Pacific/Auckland", hours24), u"02:59:59"_s);
    EXPECT_EQ(at(u"2026-04-04T14:00:00Z"_s, "en_US", "Pacific/Auckland", hours24), u"02:00:00"_s);
}

TEST(ClockText, cutsFractionsOfASecond)
{
    EXPECT_EQ(at(u"2026-05-04T08:05:07.999Z"_s, "en_US", "UTC", hours24), u"08:05:07"_s);
}

TEST(ClockText, readsBefore1970)
{
    EXPECT_EQ(at(u"1969-12-31T23:59:58.500Z"_s, "en_US", "UTC", hours24), u"23:59:58"_s);
}

TEST(ClockText, readsInAnyLocaleThatIcuDoesNotKnowAsItsRoot)
{
    EXPECT_EQ(at(u"2026-05-04T20:05:07Z"_s, "xx_XX", "UTC", hours24), u"20:05:07"_s);
    EXPECT_EQ(at(u"2026-05-04T20:05:07Z"_s, "", "UTC", hours24), u"20:05:07"_s);
}

} // namespace
} // namespace glimmet
