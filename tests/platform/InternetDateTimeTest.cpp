#include "platform/InternetDateTime.h"

#include "tests/support/FixedRegion.h"

#include <gtest/gtest.h>

#include <QString>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// Seconds since 1970; 0.5 where there are none, which no text here means.
double secondsOf(const QString &text)
{
    const auto moment = parseInternetDateTime(text);
    return moment ? moment->unixMilliseconds() / 1000 : 0.5;
}

bool isRefused(const QString &text)
{
    return !parseInternetDateTime(text);
}

TEST(InternetDateTime, isReadWithoutAFraction)
{
    EXPECT_EQ(secondsOf(u"2024-05-01T10:20:30Z"_s), 1714558830);
    EXPECT_EQ(secondsOf(u"1970-01-01T00:00:00Z"_s), 0);
    EXPECT_EQ(secondsOf(u"1969-12-31T23:59:59Z"_s), -1);
    EXPECT_EQ(secondsOf(u"2000-02-29T23:59:59Z"_s), 951868799);
    EXPECT_EQ(secondsOf(u"9999-12-31T23:59:59Z"_s), 253402300799);
}

TEST(InternetDateTime, isReadWithAFractionOfAnyLength)
{
    EXPECT_EQ(secondsOf(u"2024-05-01T10:20:30.5Z"_s), 1714558830.5);
    EXPECT_EQ(secondsOf(u"2024-05-01T10:20:30.000Z"_s), 1714558830);
    EXPECT_EQ(secondsOf(u"2024-05-01T10:20:30.125000Z"_s), 1714558830.125);
    EXPECT_NEAR(secondsOf(u"2024-05-01T10:20:30.482913Z"_s), 1714558830.482913, 1e-6);
    EXPECT_NEAR(secondsOf(u"2024-05-01T10:20:30.123456789Z"_s), 1714558830.123456789, 1e-6);
    EXPECT_EQ(secondsOf(u"2024-05-01T10:20:30.25"_s + QString(100'000, u'0') + u'Z'), 1714558830.25);
    EXPECT_LT(secondsOf(u"2024-05-01T10:20:30.999999Z"_s), 1714558831);
}

TEST(InternetDateTime, isReadWithAnyOffset)
{
    EXPECT_EQ(secondsOf(u"2024-05-01T10:20:30+00:00"_s), 1714558830);
    EXPECT_EQ(secondsOf(u"2024-05-01T10:20:30-00:00"_s), 1714558830);
    EXPECT_EQ(secondsOf(u"2024-05-01T15:50:30+05:30"_s), 1714558830);
    EXPECT_EQ(secondsOf(u"2024-05-01T06:20:30-04:00"_s), 1714558830);
    EXPECT_EQ(secondsOf(u"2024-05-02T00:05:30.5+13:45"_s), 1714558830.5);
    EXPECT_EQ(secondsOf(u"2024-05-02T10:19:30+23:59"_s), 1714558830);
    EXPECT_EQ(secondsOf(u"2024-12-31T20:00:00-04:00"_s), secondsOf(u"2025-01-01T00:00:00Z"_s));
}

TEST(InternetDateTime, isRefusedInAnyOtherForm)
{
    for (const char16_t *text : { u"", u"yesterday", u"2024-05-01", u"10:20:30Z", u"2024-05-01 10:20:30Z",
             u"2024-05-01t10:20:30Z", u"2024-05-01T10:20:30z", u"2024-05-01T10:20:30", u"2024-05-01T10:20Z",
             u"2024-05-01T10Z", u"2024-5-1T10:20:30Z", u"24-05-01T10:20:30Z", u"12024-05-01T10:20:30Z",
             u"20240501T102030Z", u"2024-W18-3T10:20:30Z", u"2024-122T10:20:30Z", u"1714558830",
             u"-2024-05-01T10:20:30Z", u"+2024-05-01T10:20:30Z", u"2024/05/01T10:20:30Z",
             u"2024-05-01T10.20.30Z", u"Wed, 01 May 2024 10:20:30 GMT" })
        EXPECT_TRUE(isRefused(QString::fromUtf16(text))) << QString::fromUtf16(text).toStdString();
}

TEST(InternetDateTime, isRefusedWithAFractionThatIsNone)
{
    for (const char16_t *text : { u"2024-05-01T10:20:30.Z", u"2024-05-01T10:20:30,5Z",
             u"2024-05-01T10:20:30.5.5Z", u"2024-05-01T10:20:30.-5Z", u"2024-05-01T10:20:30.5e3Z",
             u"2024-05-01T10:20.5Z", u"2024-05-01T10:20:30. 5Z", u"2024-05-01T10:20:30.٥Z" })
        EXPECT_TRUE(isRefused(QString::fromUtf16(text))) << QString::fromUtf16(text).toStdString();
}

TEST(InternetDateTime, isRefusedWithAnOffsetThatIsNone)
{
    for (const char16_t *text : { u"2024-05-01T10:20:30+0530", u"2024-05-01T10:20:30+05",
             u"2024-05-01T10:20:30+5:30", u"2024-05-01T10:20:30+24:00", u"2024-05-01T10:20:30+05:60",
             u"2024-05-01T10:20:30 +05:30", u"2024-05-01T10:20:30Z+05:30", u"2024-05-01T10:20:30−05:30",
             u"2024-05-01T10:20:30+05:30Z", u"2024-05-01T10:20:30UTC", u"2024-05-01T10:20:30+05:30:15" })
        EXPECT_TRUE(isRefused(QString::fromUtf16(text))) << QString::fromUtf16(text).toStdString();
}

TEST(InternetDateTime, isRefusedWhereThatDateOrTimeDoesNotExist)
{
    for (const char16_t *text :
        { u"2024-00-01T10:20:30Z", u"2024-13-01T10:20:30Z", u"2024-05-00T10:20:30Z", u"2024-04-31T10:20:30Z",
            u"2023-02-29T10:20:30Z", u"2100-02-29T10:20:30Z", u"2024-05-01T24:00:00Z",
            u"2024-05-01T10:60:00Z", u"2024-05-01T10:20:60Z", u"2024-05-01T99:99:99Z" })
        EXPECT_TRUE(isRefused(QString::fromUtf16(text))) << QString::fromUtf16(text).toStdString();
}

TEST(InternetDateTime, isRefusedWithAnythingAroundIt)
{
    for (const QString &text : { u" 2024-05-01T10:20:30Z"_s, u"2024-05-01T10:20:30Z "_s,
             u"2024-05-01T10:20:30Z\n"_s, u"\n2024-05-01T10:20:30Z"_s, u"2024-05-01T10:20:30ZZ"_s,
             u"2024-05-01T10:20:30Z\0"_s, u"\uFEFF2024-05-01T10:20:30Z"_s })
        EXPECT_TRUE(isRefused(text)) << text.toStdString();
}

TEST(InternetDateTime, isOfAsciiDigitsOnly)
{
    EXPECT_TRUE(isRefused(u"٢٠٢٤-٠٥-٠١T١٠:٢٠:٣٠Z"_s));
    EXPECT_TRUE(isRefused(u"２０２４-05-01T10:20:30Z"_s));
}

} // namespace
} // namespace glimmet
