#include "ui/editors/DateTimeInput.h"

#include "tests/support/Printing.h"
#include "tests/ui/editors/DateTimeTyping.h"

#include <gmock/gmock.h>

#include <random>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

struct Example {
    const char *locale;
    QString letters;
    QString meant;
};

const QList<Example> wholeMoments{
    { "de_DE", u"1.2.2027 9:15"_s, u"2027-02-01 09:15"_s },
    { "de_DE", u"01.02.2027 09:15"_s, u"2027-02-01 09:15"_s },
    { "de_DE", u"24.12. 18:00"_s, u"2026-12-24 18:00"_s },
    { "de_DE", u"24.12. 18.00"_s, u"2026-12-24 18:00"_s },
    { "de_DE", u"1.2. 9.15"_s, u"2027-02-01 09:15"_s },
    { "de_DE", u"1.2.27. 9.15"_s, u"2027-02-01 09:15"_s },
    { "de_DE", u"1.2. 9:15"_s, u"2027-02-01 09:15"_s },
    { "en_GB", u"4/5 9:15"_s, u"2026-05-04 09:15"_s },
    { "en_US", u"1/2 1:30 PM"_s, u"2027-01-02 13:30"_s },
    { "en_US", u"1/2 13:30"_s, u"2027-01-02 13:30"_s },
    { "en_US", u"1/2 9pm"_s, u"2027-01-02 21:00"_s },
    { "en_US", u"1/2 9 PM"_s, u"2027-01-02 21:00"_s },
    { "de_DE", u"29.2. 18:00"_s, u"2028-02-29 18:00"_s },
    { "de_DE", u"31.12.2027 24:00"_s, u"2028-01-01 00:00"_s },
    { "en_US", u"12/31/2027 24:00"_s, u"2028-01-01 00:00"_s },
    { "de_DE", u"24.12. 24.00"_s, u"2026-12-25 00:00"_s },
    { "de_DE", u"01.02.2027, 09:15"_s, u"2027-02-01 09:15"_s },
    { "de_DE", u"1. 2. 27 13.30"_s, u"2027-02-01 13:30"_s },
    { "de_DE", u"010220270915"_s, u"2027-02-01 09:15"_s },
    { "de_DE", u"31.12.2027 23:59:30"_s, u"2027-12-31 23:59"_s },
    { "de_DE", u"1.2.2027 9:5 "_s, u"2027-02-01 09:05"_s },
    { "de_DE", u"2027-02-01 9:15"_s, u"2027-02-01 09:15"_s },
    { "de_DE", u"2027-2-1 9:15"_s, u"2027-02-01 09:15"_s },
    { "de_DE", u"2027.02.01 9:15"_s, u"2027-02-01 09:15"_s },
    { "de_DE", u"2027 02 01 9:15"_s, u"2027-02-01 09:15"_s },
    { "de_DE", u"2027-02-01T09:15"_s, u"2027-02-01 09:15"_s },
    { "en_GB", u"2027.2.1 9:15"_s, u"2027-02-01 09:15"_s },
    { "en_US", u"2027.12.01 9:15 am"_s, u"2027-12-01 09:15"_s },
    { "he_IL", u"2027/02/01 9:15"_s, u"2027-02-01 09:15"_s },
    { "en_GB", u"1/2/2027 1:30 pm"_s, u"2027-02-01 13:30"_s },
    { "en_GB", u"1/2/27, 13:30"_s, u"2027-02-01 13:30"_s },
    { "en_US", u"1/2/2027, 1:30 PM"_s, u"2027-01-02 13:30"_s },
    { "en_US", u"1/2/27 1:30 a.m."_s, u"2027-01-02 01:30"_s },
    { "en_US", u"01/02/2027 12:30 AM"_s, u"2027-01-02 00:30"_s },
    { "en_US", u"1-2-2027 13:30"_s, u"2027-01-02 13:30"_s },
    { "en_US", u"1/2/2027 21:45:00"_s, u"2027-01-02 21:45"_s },
    { "en_US", u"1/2/2027 00:30"_s, u"2027-01-02 00:30"_s },
    { "en_US", u"1/2/2027 9:15:00 AM"_s, u"2027-01-02 09:15"_s },
    { "en_US", u"2027-02-01 9:15 am"_s, u"2027-02-01 09:15"_s },
    { "en_US_POSIX", u"1/2/2027 1:30 PM"_s, u"2027-01-02 13:30"_s },
    { "ko_KR", u"2027. 2. 1. 오전 9:15"_s, u"2027-02-01 09:15"_s },
    { "ko_KR", u"2027. 02. 01. 오후 1:30"_s, u"2027-02-01 13:30"_s },
    { "ko_KR", u"2027.12.1 a 9:15"_s, u"2027-12-01 09:15"_s },
    { "ko_KR", u"2027-2-1 9:15"_s, u"2027-02-01 21:15"_s },
    { "ko_KR", u"2027-2-1 9:15 am"_s, u"2027-02-01 09:15"_s },
    { "ko_KR", u"2027-2-1 13:30"_s, u"2027-02-01 13:30"_s },
    { "zh_TW", u"2027/2/1 上午9:15"_s, u"2027-02-01 09:15"_s },
    { "zh_TW", u"2027/02/01 下午1:30"_s, u"2027-02-01 13:30"_s },
    { "zh_TW", u"2027/12/31 p1:30"_s, u"2027-12-31 13:30"_s },
    { "ja_JP", u"2027-02-01 9:15"_s, u"2027-02-01 09:15"_s },
    { "ja_JP", u"2027/2/1 9：15"_s, u"2027-02-01 09:15"_s },
    { "ja_JP", u"27/2/1 21:15"_s, u"2027-02-01 21:15"_s },
    { "ar_EG", u"١/٢/٢٠٢٧، ٩:١٥ ص"_s, u"2027-02-01 09:15"_s },
    { "ar_EG", u"1/2/2027 1:30 م"_s, u"2027-02-01 13:30"_s },
    { "he_IL", u"1.2.2027, 9:15"_s, u"2027-02-01 09:15"_s },
    { "he_IL", u"01.02.2027 21:15"_s, u"2027-02-01 21:15"_s },
    { "fa_IR", u"۲۰۲۷/۲/۱، ۹:۱۵"_s, u"2027-02-01 09:15"_s },
    { "fa_IR", u"2027/02/01 21:15"_s, u"2027-02-01 21:15"_s },
    { "sv_SE", u"2027-02-01 9.15"_s, u"2027-02-01 09:15"_s },
    { "fr_CA", u"2027-02-01 1 h 15"_s, u"2027-02-01 01:15"_s },
};

TEST(DateTimeInput, readsAMomentAsPeopleWriteIt)
{
    for (const auto &[locale, letters, meant] : wholeMoments)
        EXPECT_EQ(typed(locale, letters), meant) << locale << ": " << qPrintable(letters);
}

TEST(DateTimeInput, readsATimeFromTheHourOn)
{
    for (const auto &[locale, letters, meant] : {
             Example{ "de_DE", u"1:30"_s, u"2026-05-04 01:30"_s },
             Example{ "de_DE", u"130"_s, u"2026-05-04 13:00"_s },
             Example{ "de_DE", u"25"_s, u"2026-05-04 02:05"_s },
             Example{ "en_US", u"1:30"_s, u"2026-05-04 13:30"_s },
             Example{ "en_US", u"1 am"_s, u"2026-05-04 01:00"_s },
             Example{ "en_US", u"1a"_s, u"2026-05-04 01:00"_s },
             Example{ "en_US", u"145"_s, u"2026-05-04 13:45"_s },
             Example{ "en_US", u"23"_s, u"2026-05-04 14:03"_s },
             Example{ "ko_KR", u"1:30 am"_s, u"2026-05-04 01:30"_s },
             Example{ "el_GR", u"1:30 π.μ."_s, u"2026-05-04 01:30"_s },
             Example{ "el_GR", u"1:30 μ.μ."_s, u"2026-05-04 13:30"_s },
         })
        EXPECT_EQ(typed(locale, letters, DateTimeField::Hour), meant)
            << locale << ": " << qPrintable(letters);
}

TEST(DateTimeInput, endsAFieldByASeparator)
{
    for (const QString &separator : { u"."_s, u"/"_s, u"-"_s, u":"_s, u","_s, u" "_s, u"\u202F"_s, u"،"_s })
        EXPECT_EQ(fieldAfter("de_DE", u"1"_s + separator, DateTimeField::Day), DateTimeField::Month)
            << qPrintable(separator);
}

TEST(DateTimeInput, skipsNoFieldByASeparatorMore)
{
    for (const QString &letters : { u"12"_s, u"12."_s, u"12. "_s, u"1, "_s, u"4./"_s })
        EXPECT_EQ(fieldAfter("de_DE", letters, DateTimeField::Day), DateTimeField::Month)
            << qPrintable(letters);
    EXPECT_EQ(fieldAfter("de_DE", u". /"_s, DateTimeField::Day), DateTimeField::Day);
}

TEST(DateTimeInput, takesADigitThatCannotFollowToTheNextField)
{
    const DateTimeInput input = typing("en_US", u"13"_s);

    EXPECT_EQ(input.fields.month, 1);
    EXPECT_EQ(input.row, 1);
    EXPECT_EQ(input.number, (TypedNumber{ 3, 1 }));
    EXPECT_EQ(typed("en_US", u"14"_s), u"2026-01-04 21:05"_s);
    EXPECT_EQ(typed("de_DE", u"35"_s), u"2026-05-03 21:05"_s);
    EXPECT_EQ(fieldAfter("de_DE", u"35"_s, DateTimeField::Day), DateTimeField::Year);
}

TEST(DateTimeInput, goesFromTheDayPeriodToTheHourByADigit)
{
    EXPECT_EQ(fieldAfter("ko_KR", u"1"_s, DateTimeField::DayPeriod), DateTimeField::Hour);
    EXPECT_EQ(fieldAfter("ko_KR", u"p "_s, DateTimeField::DayPeriod), DateTimeField::Hour);
    EXPECT_EQ(typed("zh_TW", u"10:30"_s, DateTimeField::DayPeriod), u"2026-05-04 22:30"_s);
}

TEST(DateTimeInput, goesToTheDayPeriodThatFollowsByItsLetter)
{
    EXPECT_EQ(fieldAfter("en_US", u"1p"_s, DateTimeField::Hour), DateTimeField::DayPeriod);
    EXPECT_EQ(fieldAfter("en_US", u"1:3p"_s, DateTimeField::Hour), DateTimeField::DayPeriod);
    EXPECT_EQ(fieldAfter("ko_KR", u"p"_s, DateTimeField::Hour), DateTimeField::Hour);
    EXPECT_EQ(fieldAfter("en_GB", u"1:30p"_s, DateTimeField::Hour), DateTimeField::Minute);
}

TEST(DateTimeInput, refusesWhatMeansNothingInItsField)
{
    const auto refuses = [](const char *locale, DateTimeField field, const QString &character) {
        const InputRules rules = rulesOf(locale);
        DateTimeInput input;
        input.row = static_cast<int>(rules.order.indexOf(field));
        return !withTyped(input, character, rules).has_value();
    };

    EXPECT_TRUE(refuses("en_US", DateTimeField::Day, u"x"_s));
    EXPECT_TRUE(refuses("en_US", DateTimeField::Hour, u"x"_s));
    EXPECT_TRUE(refuses("en_US", DateTimeField::DayPeriod, u"1"_s));
    for (const QString &character : { u""_s, u"\t"_s, u"\r"_s, u"\x1b"_s, u"#"_s })
        EXPECT_TRUE(refuses("de_DE", DateTimeField::Day, character)) << qPrintable(character);
}

TEST(DateTimeInput, beginsTheLastFieldAnewUntilASeparatorStandsBehindIt)
{
    EXPECT_EQ(typed("de_DE", u"45"_s + u"07"_s, DateTimeField::Minute), u"2026-05-04 21:07"_s);
    EXPECT_EQ(typed("de_DE", u"45:07"_s, DateTimeField::Minute), u"2026-05-04 21:45"_s);
}

TEST(DateTimeInput, leavesAYearOfThreeDigitsAsItWas)
{
    EXPECT_EQ(typed("de_DE", u"1.2.202 9:15"_s), u"2026-02-01 09:15"_s);
    EXPECT_EQ(typed("de_DE", u"1.2.7 9:15"_s), u"2027-02-01 09:15"_s);
}

struct Impossible {
    const char *locale;
    QString letters;
    QString nearest;
    QList<DateTimeField> moved;
};

using Field = DateTimeField;

TEST(DateTimeInput, movesWhatCannotBeToTheNearestThatCan)
{
    for (const auto &[locale, letters, nearest, moved] : {
             Impossible{ "de_DE", u"1.2.2027 9:60"_s, u"2027-02-01 09:59"_s, { Field::Minute } },
             Impossible{ "de_DE", u"1.2.2027 9:99:30"_s, u"2027-02-01 09:59"_s, { Field::Minute } },
             Impossible{ "en_US", u"2/1/2027 9:60 am"_s, u"2027-02-01 09:59"_s, { Field::Minute } },
             Impossible{ "ko_KR", u"2027.2.1 a 9:75"_s, u"2027-02-01 09:59"_s, { Field::Minute } },
             Impossible{ "de_DE", u"1.2.2027 25:15"_s, u"2027-02-01 23:15"_s, { Field::Hour } },
             Impossible{ "en_US", u"2/1/2027 25:15"_s, u"2027-02-01 23:15"_s, { Field::Hour } },
             Impossible{ "de_DE", u"1.13.2027 9:15"_s, u"2027-12-01 09:15"_s, { Field::Month } },
             Impossible{ "en_US", u"13/2/2027 9:15 am"_s, u"2027-12-02 09:15"_s, { Field::Month } },
             Impossible{ "de_DE", u"2027-13-01 9:15"_s, u"2027-12-01 09:15"_s, { Field::Month } },
             Impossible{ "de_DE", u"2027-12-35 9:15"_s, u"2027-12-31 09:15"_s, { Field::Day } },
             Impossible{ "de_DE", u"35.1.2027 9:15"_s, u"2027-01-31 09:15"_s, { Field::Day } },
             Impossible{ "de_DE", u"0.1.2027 9:15"_s, u"2027-01-01 09:15"_s, { Field::Day } },
             Impossible{ "de_DE", u"31.2.2027 9:15"_s, u"2027-02-28 09:15"_s, { Field::Day } },
             Impossible{ "de_DE", u"2027.02.31 9:15"_s, u"2027-02-28 09:15"_s, { Field::Day } },
             Impossible{ "ja_JP", u"2027/2/31 9:15"_s, u"2027-02-28 09:15"_s, { Field::Day } },
             Impossible{ "en_US", u"2/31/2027 9:15 am"_s, u"2027-02-28 09:15"_s, { Field::Day } },
             Impossible{ "de_DE", u"31.6. 9:15"_s, u"2026-06-30 09:15"_s, { Field::Day } },
             Impossible{ "de_DE", u"24.12.2020 9:15"_s, u"2026-12-24 09:15"_s, { Field::Year } },
             Impossible{ "de_DE", u"2020-12-24 9:15"_s, u"2026-12-24 09:15"_s, { Field::Year } },
             Impossible{ "de_DE", u"24.12.202 9:15"_s, u"2026-12-24 09:15"_s, { Field::Year } },
         }) {
        const DateTimeInput input = typedInput(locale, letters);

        EXPECT_EQ(text(input.fields), nearest) << locale << ": " << qPrintable(letters);
        EXPECT_EQ(input.moved, moved) << locale << ": " << qPrintable(letters);
    }
}

TEST(DateTimeInput, movesNothingThatCanBe)
{
    for (const auto &[locale, letters, meant] : wholeMoments)
        EXPECT_THAT(typedInput(locale, letters).moved, IsEmpty()) << locale << ": " << qPrintable(letters);
}

TEST(DateTimeInput, showsTheNearestAsSoonAsItsFieldIsLeft)
{
    EXPECT_EQ(text(typing("de_DE", u"1.13."_s).fields), u"2026-12-01 21:05"_s);
    EXPECT_EQ(text(typing("de_DE", u"31.2."_s).fields), u"2026-02-31 21:05"_s);
    EXPECT_EQ(text(typing("de_DE", u"31.2.2027"_s).fields), u"2027-02-28 21:05"_s);
    EXPECT_EQ(text(typing("de_DE", u"9:60"_s, Field::Hour).fields), u"2026-05-04 09:59"_s);
}

TEST(DateTimeInput, forgetsThatAFieldWasMovedWhenItIsEnteredAnew)
{
    EXPECT_THAT(typedInput("de_DE", u"9:60"_s, Field::Hour).moved, ElementsAre(Field::Minute));
    EXPECT_THAT(typedInput("de_DE", u"9:6030"_s, Field::Hour).moved, IsEmpty());
    EXPECT_EQ(typed("de_DE", u"9:6030"_s, Field::Hour), u"2026-05-04 09:30"_s);
}

TEST(DateTimeInput, bearsAKeyThatIsHeldDown)
{
    EXPECT_EQ(typed("de_DE", QString(1000, u'1')), u"2026-11-11 11:11"_s);
}

TEST(DateTimeInput, bearsWhateverIsTyped)
{
    const QString letters = u"0123456789 ..//::-,apmdecjunstrhJ年月ä"_s;
    std::mt19937 random(1);
    for (const char *locale : { "de_DE", "en_US", "en_GB", "ko_KR", "ja_JP", "ar_EG", "es_ES" }) {
        const InputRules rules = rulesOf(locale);
        for (int i = 0; i < 40; ++i) {
            QString text;
            while (text.size() < 30)
                text += letters.at(static_cast<qsizetype>(random() % static_cast<unsigned>(letters.size())));

            const DateTimeInput input = typedInput(locale, text);

            ASSERT_TRUE(input.row >= 0 && input.row < rules.order.size()) << qPrintable(text);
            for (const DateTimeField field : rules.order) {
                const FieldRange range = fieldRange(field, rules.fields);
                const int value = fieldValue(input.fields, field, rules.fields);
                ASSERT_TRUE(value >= range.lowest && value <= range.highest) << locale << qPrintable(text);
            }
        }
    }
}

TEST(DateTimeInput, anHourWithoutMinutesIsAFullOne)
{
    for (const QString &letters : { u"9pm"_s, u"9 PM"_s, u"09p"_s })
        EXPECT_EQ(typed("en_US", letters, DateTimeField::Hour), u"2026-05-04 21:00"_s);
    EXPECT_EQ(typed("en_US", u"12 AM"_s, DateTimeField::Hour), u"2026-05-04 00:00"_s);
    EXPECT_EQ(typed("en_US", u"1:3 AM"_s, DateTimeField::Hour), u"2026-05-04 01:03"_s);
}

TEST(DateTimeInput, aDayPeriodAloneLeavesTheMinutes)
{
    EXPECT_EQ(typed("en_US", u"a"_s, DateTimeField::Hour), u"2026-05-04 09:05"_s);
    EXPECT_EQ(typed("en_US", u"a"_s, DateTimeField::Minute), u"2026-05-04 09:05"_s);
}

} // namespace
} // namespace glimmet
