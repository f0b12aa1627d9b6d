#include "platform/DateTimeConventions.h"

#include "tests/support/Printing.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

/// The fields as a pattern, from left to right: "M" for a month of one digit, "MM" for one of two.
QString pattern(QList<FieldPlace> places)
{
    std::sort(places.begin(), places.end(),
        [](const FieldPlace &one, const FieldPlace &other) { return one.column < other.column; });
    QString text;
    for (const FieldPlace &place : places)
        text += QString(place.digits, u"yMdhma"_s.at(static_cast<int>(place.field))) + place.separator;
    return text;
}

/// The fields in the order in which they are read: "dMy hma".
QString order(const char *locale)
{
    const DateTimeConventions conventions = dateTimeConventions(locale);
    QString text;
    for (const FieldPlace &place : conventions.dateFields)
        text += u"yMdhma"_s.at(static_cast<int>(place.field));
    text += u' ';
    for (const FieldPlace &place : conventions.timeFields)
        text += u"yMdhma"_s.at(static_cast<int>(place.field));
    return text;
}

QString datePattern(const char *locale)
{
    return pattern(dateTimeConventions(locale).dateFields);
}

QString timePattern(const char *locale)
{
    return pattern(dateTimeConventions(locale).timeFields);
}

TEST(DateTimeConventions, haveTheLocalesOrderAndSeparators)
{
    EXPECT_EQ(datePattern("en_US"), u"MM/dd/y"_s);
    EXPECT_EQ(datePattern("en_GB"), u"dd/MM/y"_s);
    EXPECT_EQ(datePattern("de_DE"), u"dd.MM.y"_s);
    EXPECT_EQ(datePattern("ja_JP"), u"y/MM/dd"_s);
    EXPECT_EQ(datePattern("sv_SE"), u"y-MM-dd"_s);
    EXPECT_EQ(datePattern("ko_KR"), u"y. MM. dd."_s);
}

TEST(DateTimeConventions, have12HoursOnlyWhereTheLocaleHas)
{
    EXPECT_EQ(timePattern("en_US"), u"h:mm\u202Fa"_s);
    EXPECT_TRUE(dateTimeConventions("en_US").uses12Hours);
    for (const char *locale : { "en_GB", "de_DE" }) {
        EXPECT_EQ(timePattern(locale), u"hh:mm"_s) << locale;
        EXPECT_FALSE(dateTimeConventions(locale).uses12Hours) << locale;
    }
    EXPECT_EQ(timePattern("ja_JP"), u"h:mm"_s);
    EXPECT_EQ(timePattern("ko_KR"), u"a h:mm"_s);
}

// The marks of direction in "d‏/M‏/y" put the year to the left; without them a Persian date is read like
// a number.
TEST(DateTimeConventions, standAsTheEyeMeetsThemFromTheLeft)
{
    EXPECT_EQ(datePattern("ar_EG"), u"y/MM/dd"_s);
    EXPECT_EQ(timePattern("ar_EG"), u"a h:mm"_s);
    EXPECT_EQ(timePattern("ar_AE"), u"a h:mm"_s);
    EXPECT_EQ(datePattern("fa_IR"), u"y/MM/dd"_s);
    EXPECT_EQ(datePattern("he_IL"), u"dd.MM.y"_s);
}

TEST(DateTimeConventions, areInTheOrderInWhichTheyAreRead)
{
    EXPECT_EQ(order("en_US"), u"Mdy hma"_s);
    EXPECT_EQ(order("de_DE"), u"dMy hm"_s);
    EXPECT_EQ(order("ko_KR"), u"yMd ahm"_s);
    EXPECT_EQ(order("zh_TW"), u"yMd ahm"_s);
    EXPECT_EQ(order("ar_EG"), u"dMy hma"_s);
    EXPECT_EQ(order("he_IL"), u"dMy hm"_s);
    EXPECT_EQ(order("fa_IR"), u"yMd hm"_s);
}

TEST(DateTimeConventions, runFromRightToLeftWhereTheScriptDoes)
{
    for (const char *locale : { "ar_EG", "he_IL", "fa_IR" })
        EXPECT_TRUE(dateTimeConventions(locale).isRightToLeft) << locale;
    for (const char *locale : { "en_US", "ko_KR", "en_US_POSIX" })
        EXPECT_FALSE(dateTimeConventions(locale).isRightToLeft) << locale;
}

TEST(DateTimeConventions, nameTheDayPeriods)
{
    EXPECT_THAT(dateTimeConventions("en_US").dayPeriods, ElementsAre(u"AM", u"PM"));
    EXPECT_THAT(dateTimeConventions("ar_EG").dayPeriods, ElementsAre(u"ص", u"م"));
    EXPECT_THAT(dateTimeConventions("ja_JP").dayPeriods, ElementsAre(u"午前", u"午後"));
}

TEST(DateTimeConventions, beginTheWeekAsTheLocaleDoes)
{
    EXPECT_EQ(dateTimeConventions("en_US").firstDayOfWeek, Qt::Sunday);
    EXPECT_EQ(dateTimeConventions("en_GB").firstDayOfWeek, Qt::Monday);
    EXPECT_EQ(dateTimeConventions("de_DE").firstDayOfWeek, Qt::Monday);
    EXPECT_EQ(dateTimeConventions("ar_EG").firstDayOfWeek, Qt::Saturday);
    EXPECT_EQ(dateTimeConventions("ja_JP").firstDayOfWeek, Qt::Sunday);
}

TEST(DateTimeConventions, nameTheWeekdaysFromTheFirstOn)
{
    EXPECT_THAT(
        dateTimeConventions("en_US").weekdays, ElementsAre(u"Su", u"Mo", u"Tu", u"We", u"Th", u"Fr", u"Sa"));
    EXPECT_THAT(
        dateTimeConventions("en_GB").weekdays, ElementsAre(u"Mo", u"Tu", u"We", u"Th", u"Fr", u"Sa", u"Su"));
    EXPECT_THAT(
        dateTimeConventions("ja_JP").weekdays, ElementsAre(u"日", u"月", u"火", u"水", u"木", u"金", u"土"));
}

TEST(DateTimeConventions, serveALocaleThatIsUnknown)
{
    const DateTimeConventions conventions = dateTimeConventions("xx_XX");

    EXPECT_EQ(conventions.dateFields.size(), 3);
    EXPECT_EQ(conventions.weekdays.size(), 7);
}

TEST(DateTimeConventions, writeNumbersInTheLocalesDigits)
{
    EXPECT_EQ(localizedNumber(7, 2, dateTimeConventions("en_US").zeroDigit), u"07"_s);
    EXPECT_EQ(localizedNumber(2026, 1, dateTimeConventions("ar_EG").zeroDigit), u"٢٠٢٦"_s);
    EXPECT_EQ(localizedNumber(40, 2, dateTimeConventions("fa_IR").zeroDigit), u"۴۰"_s);
    EXPECT_EQ(localizedNumber(12, 2, U'𝟎'), u"𝟏𝟐"_s);
}

TEST(DateTimeConventions, readDigitsOfEveryScript)
{
    EXPECT_EQ(digitValue(u"7"_s), 7);
    EXPECT_EQ(digitValue(u"٧"_s), 7);
    EXPECT_EQ(digitValue(u"۷"_s), 7);
    EXPECT_EQ(digitValue(u"７"_s), 7);
    EXPECT_EQ(digitValue(u"𝟕"_s), 7);
    for (const QString &text : { u""_s, u"a"_s, u"12"_s, u"\t"_s, u"½"_s })
        EXPECT_EQ(digitValue(text), -1) << qPrintable(text);
}

} // namespace
} // namespace glimmet
