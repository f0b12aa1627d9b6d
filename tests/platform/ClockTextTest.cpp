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
    const FixedRegion region(locale, zone);
    return ClockText(region).at(instantAt(iso), pattern);
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

TEST(ClockText, followsTheLocaleTheZoneAndThePatternFromCallToCall)
{
    FixedRegion region("en_US", "UTC");
    const ClockText text(region);
    const Instant moment = instantAt(u"2026-05-04T20:05:07Z"_s);
    ASSERT_EQ(text.at(moment, hours24), u"20:05:07"_s);

    region.setZone("Asia/Kolkata");
    EXPECT_EQ(text.at(moment, hours24), u"01:35:07"_s);

    EXPECT_EQ(text.at(moment, hours12), u"1:35:07 AM"_s);

    region.setLocale("ar_EG");
    EXPECT_EQ(text.at(moment, hours12), u"١:٣٥:٠٧ ص"_s);

    region.setZone("UTC");
    EXPECT_EQ(text.at(moment, hours12), u"٨:٠٥:٠٧ م"_s);
}

TEST(ClockText, isWhatANewOneWouldSayThroughAYearOfEveryZone)
{
    FixedRegion region("en_US", "UTC");
    const ClockText kept(region);
    const Instant newYear = instantAt(u"2026-01-01T00:00:00Z"_s);
    for (const QByteArray zone :
        { "America/New_York", "Asia/Kolkata", "Pacific/Auckland", "Australia/Lord_Howe" })
        for (int hour = 0; hour < 365 * 24; hour += 5) {
            region.setZone(zone);
            region.setLocale(hour % 3 ? "th_TH" : "de_DE");
            const Instant moment = newYear.advanced(hour * 3600.0);
            ASSERT_EQ(kept.at(moment, hours12), ClockText(region).at(moment, hours12))
                << zone.toStdString() << hour;
        }
}

} // namespace
} // namespace glimmet
