#include "ui/editors/DateTimeFields.h"

#include "tests/support/FixedRegion.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using Field = DateTimeField;

constexpr FieldRules of24{ false, 2026 };
constexpr FieldRules of12{ true, 2026 };

/// "2026-05-04 09:05"
QString text(const DateTimeFields &fields)
{
    const auto number = [](int value) { return QString::number(value).rightJustified(2, u'0'); };
    return number(fields.year) + u'-' + number(fields.month) + u'-' + number(fields.day) + u' '
        + number(fields.hour) + u':' + number(fields.minute);
}

constexpr DateTimeFields someday{ 2026, 5, 4, 21, 5 };

TEST(DateTimeFields, comeFromAMinuteAndLeadBackToIt)
{
    const WallClock::Minute minute{ QDate(2026, 5, 4), 21, 5 };

    EXPECT_EQ(fieldsOf(minute), someday);
    EXPECT_EQ(minuteOf(someday), minute);
}

TEST(DateTimeFields, meanTheLastDayWhereTheMonthIsShorter)
{
    EXPECT_EQ(minuteOf({ 2026, 2, 31, 0, 0 }).date, QDate(2026, 2, 28));
    EXPECT_EQ(minuteOf({ 2028, 2, 31, 0, 0 }).date, QDate(2028, 2, 29));
    EXPECT_EQ(minuteOf({ 2026, 4, 31, 0, 0 }).date, QDate(2026, 4, 30));
}

TEST(DateTimeFields, haveNumbersWithinTheirRange)
{
    EXPECT_EQ(fieldRange(Field::Year, of24), (FieldRange{ 2026, 9999 }));
    EXPECT_EQ(fieldRange(Field::Month, of24), (FieldRange{ 1, 12 }));
    EXPECT_EQ(fieldRange(Field::Day, of24), (FieldRange{ 1, 31 }));
    EXPECT_EQ(fieldRange(Field::Hour, of24), (FieldRange{ 0, 23 }));
    EXPECT_EQ(fieldRange(Field::Hour, of12), (FieldRange{ 1, 12 }));
    EXPECT_EQ(fieldRange(Field::Minute, of24), (FieldRange{ 0, 59 }));
    EXPECT_EQ(fieldRange(Field::DayPeriod, of12), (FieldRange{ 0, 1 }));
}

TEST(DateTimeFields, countTwelveHoursFromTwelve)
{
    const auto hour = [](int of24Hours) {
        return fieldValue({ 2026, 1, 1, of24Hours, 0 }, Field::Hour, of12);
    };

    EXPECT_EQ(hour(0), 12);
    EXPECT_EQ(hour(1), 1);
    EXPECT_EQ(hour(11), 11);
    EXPECT_EQ(hour(12), 12);
    EXPECT_EQ(hour(13), 1);
    EXPECT_EQ(hour(23), 11);
    EXPECT_EQ(fieldValue(someday, Field::Hour, of24), 21);
    EXPECT_EQ(fieldValue(someday, Field::DayPeriod, of12), 1);
}

TEST(DateTimeFields, keepTheOthersWhenOneIsSet)
{
    EXPECT_EQ(text(withField(someday, Field::Year, 2031, of24)), u"2031-05-04 21:05"_s);
    EXPECT_EQ(text(withField(someday, Field::Month, 12, of24)), u"2026-12-04 21:05"_s);
    EXPECT_EQ(text(withField(someday, Field::Day, 31, of24)), u"2026-05-31 21:05"_s);
    EXPECT_EQ(text(withField(someday, Field::Hour, 7, of24)), u"2026-05-04 07:05"_s);
    EXPECT_EQ(text(withField(someday, Field::Minute, 59, of24)), u"2026-05-04 21:59"_s);
}

TEST(DateTimeFields, keepTheDayPeriodWhenOneOfTwelveHoursIsSet)
{
    EXPECT_EQ(text(withField(someday, Field::Hour, 12, of12)), u"2026-05-04 12:05"_s);
    EXPECT_EQ(text(withField(someday, Field::Hour, 3, of12)), u"2026-05-04 15:05"_s);
    EXPECT_EQ(text(withField({ 2026, 5, 4, 9, 5 }, Field::Hour, 12, of12)), u"2026-05-04 00:05"_s);
    EXPECT_EQ(text(withField(someday, Field::DayPeriod, 0, of12)), u"2026-05-04 09:05"_s);
    EXPECT_EQ(text(withField(someday, Field::DayPeriod, 1, of12)), u"2026-05-04 21:05"_s);
}

TEST(DateTimeFields, takeTheNearestNumberThatTheyCan)
{
    EXPECT_EQ(text(withField(someday, Field::Month, 13, of24)), u"2026-12-04 21:05"_s);
    EXPECT_EQ(text(withField(someday, Field::Day, 0, of24)), u"2026-05-01 21:05"_s);
    EXPECT_EQ(text(withField(someday, Field::Year, 1999, of24)), u"2026-05-04 21:05"_s);
    EXPECT_EQ(text(withField(someday, Field::Hour, -1, of24)), u"2026-05-04 00:05"_s);
}

TEST(DateTimeFields, stepRoundTheirEnd)
{
    EXPECT_EQ(stepped({ 2026, 12, 4, 0, 0 }, Field::Month, 1, of24).month, 1);
    EXPECT_EQ(stepped({ 2026, 1, 4, 0, 0 }, Field::Month, -1, of24).month, 12);
    EXPECT_EQ(stepped({ 2026, 1, 4, 23, 0 }, Field::Hour, 1, of24).hour, 0);
    EXPECT_EQ(stepped({ 2026, 1, 4, 0, 59 }, Field::Minute, 1, of24).minute, 0);
    EXPECT_EQ(stepped({ 2026, 1, 4, 0, 0 }, Field::Minute, -1, of24).minute, 59);
    EXPECT_EQ(stepped({ 2026, 1, 4, 9, 0 }, Field::DayPeriod, 1, of12).hour, 21);
    EXPECT_EQ(stepped({ 2026, 1, 4, 21, 0 }, Field::DayPeriod, 1, of12).hour, 9);
}

TEST(DateTimeFields, stepWithinTheMonth)
{
    EXPECT_EQ(stepped({ 2026, 2, 28, 0, 0 }, Field::Day, 1, of24).day, 1);
    EXPECT_EQ(stepped({ 2028, 2, 28, 0, 0 }, Field::Day, 1, of24).day, 29);
    EXPECT_EQ(stepped({ 2026, 4, 1, 0, 0 }, Field::Day, -1, of24).day, 30);
    EXPECT_EQ(stepped({ 2026, 4, 31, 0, 0 }, Field::Day, -1, of24).day, 29);
}

TEST(DateTimeFields, stepYearsToTheirEndsOnly)
{
    EXPECT_EQ(stepped({ 2026, 1, 1, 0, 0 }, Field::Year, 1, of24).year, 2027);
    EXPECT_EQ(stepped({ 2026, 1, 1, 0, 0 }, Field::Year, -1, of24).year, 2026);
    EXPECT_EQ(stepped({ 9999, 1, 1, 0, 0 }, Field::Year, 1, of24).year, 9999);
}

TEST(DateTimeFields, stepTwelveHoursWithinTheirDayPeriod)
{
    EXPECT_EQ(stepped({ 2026, 1, 1, 11, 0 }, Field::Hour, 1, of12).hour, 0);
    EXPECT_EQ(stepped({ 2026, 1, 1, 12, 0 }, Field::Hour, 1, of12).hour, 13);
    EXPECT_EQ(stepped({ 2026, 1, 1, 13, 0 }, Field::Hour, -1, of12).hour, 12);
}

TEST(TypedNumber, growsDigitByDigit)
{
    const TypedNumber one = withDigit({}, 1);
    EXPECT_EQ(one, (TypedNumber{ 1, 1 }));
    EXPECT_FALSE(isComplete(one, 12));

    const TypedNumber two = withDigit(one, 2);
    EXPECT_EQ(two, (TypedNumber{ 12, 2 }));
    EXPECT_TRUE(isComplete(two, 12));
}

TEST(TypedNumber, isCompleteWhereNoDigitCanFollow)
{
    EXPECT_TRUE(isComplete({ 2, 1 }, 12));
    EXPECT_FALSE(isComplete({ 3, 1 }, 31));
    EXPECT_TRUE(isComplete({ 4, 1 }, 31));
    EXPECT_FALSE(isComplete({ 0, 1 }, 23));
    EXPECT_TRUE(isComplete({ 7, 2 }, 23));
    EXPECT_FALSE(isComplete({ 202, 3 }, 9999));
    EXPECT_TRUE(isComplete({ 2026, 4 }, 9999));
}

TEST(TypedNumber, takesNoDigitThatLeadsAboveTheRange)
{
    EXPECT_TRUE(takesDigit({}, 9, 12));
    EXPECT_TRUE(takesDigit({ 1, 1 }, 2, 12));
    EXPECT_FALSE(takesDigit({ 1, 1 }, 3, 12));
    EXPECT_FALSE(takesDigit({ 3, 1 }, 2, 31));
    EXPECT_TRUE(takesDigit({ 0, 1 }, 5, 12));
    EXPECT_FALSE(takesDigit({ 0, 2 }, 5, 12));
}

struct ShortYear {
    TypedNumber typed;
    int firstYear;
    int meant;
};

TEST(TypedNumber, isTheYearThatPeopleMean)
{
    for (const auto &[typed, firstYear, meant] : {
             ShortYear{ { 27, 2 }, 2026, 2027 },
             ShortYear{ { 27, 3 }, 2026, 2027 },
             ShortYear{ { 27, 4 }, 2026, 2027 },
             ShortYear{ { 25, 2 }, 2026, 2025 },
             ShortYear{ { 99, 2 }, 2026, 2099 },
             ShortYear{ { 5, 2 }, 2098, 2105 },
             ShortYear{ { 7, 1 }, 2026, 2027 },
             ShortYear{ { 1, 1 }, 2029, 2031 },
             ShortYear{ { 2031, 4 }, 2026, 2031 },
         })
        EXPECT_EQ(meantYear(typed, firstYear), meant) << typed.value << " in " << firstYear;
    EXPECT_EQ(meantYear({ 202, 3 }, 2026), std::nullopt);
}

TEST(TypedNumber, takesTheNearestPlaceInItsField)
{
    EXPECT_EQ(text(withTypedNumber(someday, Field::Month, { 0, 2 }, of24)), u"2026-01-04 21:05"_s);
    EXPECT_EQ(text(withTypedNumber(someday, Field::Year, { 28, 2 }, of24)), u"2028-05-04 21:05"_s);
    EXPECT_EQ(text(withTypedNumber(someday, Field::Year, { 19, 2 }, of24)), u"2026-05-04 21:05"_s);
    EXPECT_EQ(
        text(withTypedNumber({ 2031, 5, 4, 21, 5 }, Field::Year, { 202, 3 }, of24)), u"2031-05-04 21:05"_s);
}

TEST(TypedNumber, isMidnightWhereItIsNoneOf12Hours)
{
    EXPECT_EQ(text(withTypedNumber(someday, Field::Hour, { 0, 1 }, of12)), u"2026-05-04 00:05"_s);
    EXPECT_EQ(text(withTypedNumber(someday, Field::Hour, { 3, 1 }, of12)), u"2026-05-04 15:05"_s);
}

TEST(DayPeriod, isMeantByTheBeginningOfItsName)
{
    const QStringList english{ u"AM"_s, u"PM"_s };
    const QStringList japanese{ u"午前"_s, u"午後"_s };
    const QStringList greek{ u"π.μ."_s, u"μ.μ."_s };

    EXPECT_EQ(dayPeriodOf(u"a"_s, english), 0);
    EXPECT_EQ(dayPeriodOf(u"P"_s, english), 1);
    EXPECT_EQ(dayPeriodOf(u"م"_s, { u"ص"_s, u"م"_s }), 1);
    EXPECT_EQ(dayPeriodOf(u"午"_s, japanese), std::nullopt);
    EXPECT_EQ(dayPeriodOf(u"午後"_s, japanese), 1);
    EXPECT_EQ(dayPeriodOf(u"後"_s, japanese), 1);
    EXPECT_EQ(dayPeriodOf(u"p"_s, japanese), 1);
    EXPECT_EQ(dayPeriodOf(u"pm"_s, japanese), 1);
    EXPECT_EQ(dayPeriodOf(u"pa"_s, japanese), std::nullopt);
    EXPECT_EQ(dayPeriodOf(u"πμ"_s, greek), 0);
    EXPECT_EQ(dayPeriodOf(u"μ"_s, greek), 1);
    for (const QString &typed : { u""_s, u"x"_s, u"\t"_s, u"1"_s })
        EXPECT_EQ(dayPeriodOf(typed, english), std::nullopt) << qPrintable(typed);
}

/// Seconds since `earliest` at which the clock of Berlin shows the fields.
double secondsAfter(const QString &earliest, const DateTimeFields &fields)
{
    const Instant moment =
        momentNotBefore(instantAt(earliest), fields, FixedRegion("de_DE", "Europe/Berlin"));
    return moment.secondsSince2001 - instantAt(earliest).secondsSince2001;
}

TEST(MomentNotBefore, isWhenTheClockShowsTheFields)
{
    EXPECT_EQ(secondsAfter(u"2026-05-04T07:00:00Z"_s, { 2026, 5, 4, 9, 5 }), 300);
    EXPECT_EQ(secondsAfter(u"2026-05-04T07:05:00Z"_s, { 2026, 5, 4, 9, 5 }), 0);
}

TEST(MomentNotBefore, isTheEarliestForWhatIsPast)
{
    EXPECT_EQ(secondsAfter(u"2026-05-04T07:06:00Z"_s, { 2026, 5, 4, 9, 5 }), 0);
    EXPECT_EQ(secondsAfter(u"2026-05-04T07:06:00Z"_s, { 2025, 5, 4, 9, 10 }), 0);
}

// 02:30 comes twice: at 00:30 and at 01:30 UTC.
TEST(MomentNotBefore, isTheFirstOfTwoThatIsNotPast)
{
    const DateTimeFields twice{ 2026, 10, 25, 2, 30 };

    EXPECT_EQ(secondsAfter(u"2026-10-25T00:00:00Z"_s, twice), 1800);
    EXPECT_EQ(secondsAfter(u"2026-10-25T00:31:00Z"_s, twice), 59 * 60);
    EXPECT_EQ(secondsAfter(u"2026-10-25T01:31:00Z"_s, twice), 0);
}

TEST(MomentNotBefore, isBehindTheGapForATimeThatDoesNotExist)
{
    EXPECT_EQ(secondsAfter(u"2026-03-29T01:00:00Z"_s, { 2026, 3, 29, 2, 30 }), 1800);
}

} // namespace
} // namespace glimmet
