#include "tests/support/Printing.h"
#include "tests/ui/editors/DateTimeTyping.h"

#include <gmock/gmock.h>

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

TEST(DateTimeInputWords, readAMonthByItsName)
{
    for (const auto &[locale, letters, meant] : {
             Example{ "de_DE", u"24. Dezember 2027 9:15"_s, u"2027-12-24 09:15"_s },
             Example{ "de_DE", u"24. Dez. 2027, 9:15"_s, u"2027-12-24 09:15"_s },
             Example{ "de_DE", u"24 Dec 2027 9:15"_s, u"2027-12-24 09:15"_s },
             Example{ "de_DE", u"24. Dezember"_s, u"2026-12-24 21:05"_s },
             Example{ "de_DE", u"24. Dezember 18:00"_s, u"2026-12-24 18:00"_s },
             Example{ "de_DE", u"1. März 9:15"_s, u"2027-03-01 09:15"_s },
             Example{ "de_DE", u"Dec 24, 2027 9:15"_s, u"2027-12-24 09:15"_s },
             Example{ "de_DE", u"2027 Dez 24 9:15"_s, u"2027-12-24 09:15"_s },
             Example{ "de_DE", u"24Dez2027 9:15"_s, u"2027-12-24 09:15"_s },
             Example{ "de_DE", u"24-Dez-27 9:15"_s, u"2027-12-24 09:15"_s },
             Example{ "en_GB", u"24 December 2027 9:15"_s, u"2027-12-24 09:15"_s },
             Example{ "en_GB", u"Dec 24"_s, u"2026-12-24 21:05"_s },
             Example{ "en_GB", u"Dec 24 9:15"_s, u"2026-12-24 09:15"_s },
             Example{ "en_GB", u"Dec 24 9 am"_s, u"2026-12-24 09:00"_s },
             Example{ "en_US", u"Dec 24"_s, u"2026-12-24 21:05"_s },
             Example{ "en_US", u"Dec 24, 2027 1:30 PM"_s, u"2027-12-24 13:30"_s },
             Example{ "en_US", u"24 Dec 2027 1:30 PM"_s, u"2027-12-24 13:30"_s },
             Example{ "en_US", u"5 Dec 2027 9 am"_s, u"2027-12-05 09:00"_s },
             Example{ "en_US", u"24dec2027 9am"_s, u"2027-12-24 09:00"_s },
             Example{ "en_US", u"2027 dec 24 9 am"_s, u"2027-12-24 09:00"_s },
             Example{ "en_US", u"12 Jan 2027 9 am"_s, u"2027-01-12 09:00"_s },
             Example{ "ja_JP", u"24 Dec 2027 9:15"_s, u"2027-12-24 09:15"_s },
             Example{ "ja_JP", u"Dec 24 2027 9:15"_s, u"2027-12-24 09:15"_s },
             Example{ "ja_JP", u"2027 Dec 24 9:15"_s, u"2027-12-24 09:15"_s },
             Example{ "sv_SE", u"24 december 2027 9.15"_s, u"2027-12-24 09:15"_s },
             Example{ "sv_SE", u"24 dec 9.15"_s, u"2026-12-24 09:15"_s },
             Example{ "ru_RU", u"24 декабря 2027 9:15"_s, u"2027-12-24 09:15"_s },
             Example{ "he_IL", u"24 דצמבר 2027 9:15"_s, u"2027-12-24 09:15"_s },
             Example{ "he_IL", u"24 בדצמבר 2027 9:15"_s, u"2027-12-24 09:15"_s },
             Example{ "he_IL", u"24 בדצמבר 9:15"_s, u"2026-12-24 09:15"_s },
             Example{ "he_IL", u"1 ביוני 2027"_s, u"2027-06-01 21:05"_s },
             Example{ "he_IL", u"יום שישי, 24 בדצמבר 2027, 9:15"_s, u"2027-12-24 09:15"_s },
         })
        EXPECT_EQ(typed(locale, letters), meant) << locale << ": " << qPrintable(letters);
}

TEST(DateTimeInputWords, passOverTheOtherWordsOfADate)
{
    for (const auto &[locale, letters, meant] : {
             Example{ "es_ES", u"24 de mayo de 2027 9:15"_s, u"2027-05-24 09:15"_s },
             Example{ "pt_BR", u"24 de dezembro de 2027 9:15"_s, u"2027-12-24 09:15"_s },
             Example{ "fr_FR", u"mardi 1 juin 2027 9:15"_s, u"2027-06-01 09:15"_s },
             Example{ "de_DE", u"Freitag, 24. Dezember 2027 9:15"_s, u"2027-12-24 09:15"_s },
             Example{ "de_DE", u"Fr 24.12.2027 9:15"_s, u"2027-12-24 09:15"_s },
             Example{ "de_DE", u"So., 1.8.2027 9:15"_s, u"2027-08-01 09:15"_s },
             Example{ "en_US", u"Fri, Dec 24th, 2027 9 am"_s, u"2027-12-24 09:00"_s },
             Example{ "en_GB", u"1st of August 2027 9:15"_s, u"2027-08-01 09:15"_s },
             Example{ "en_GB", u"August 1st, 2027 9:15"_s, u"2027-08-01 09:15"_s },
             Example{ "en_GB", u"the 2nd of March 2027 9:15"_s, u"2027-03-02 09:15"_s },
         })
        EXPECT_EQ(typed(locale, letters), meant) << locale << ": " << qPrintable(letters);
}

TEST(DateTimeInputWords, readTheWordOfAnHour)
{
    for (const auto &[locale, letters, meant] : {
             Example{ "de_DE", u"24. Dezember 18 Uhr"_s, u"2026-12-24 18:00"_s },
             Example{ "de_DE", u"24. Dezember 9 Uhr"_s, u"2026-12-24 09:00"_s },
             Example{ "de_DE", u"24. Dezember, 18 Uhr 30"_s, u"2026-12-24 18:30"_s },
             Example{ "de_DE", u"24. Dezember um 18 Uhr"_s, u"2026-12-24 18:00"_s },
             Example{ "de_DE", u"24. Dezember um 18:15 Uhr"_s, u"2026-12-24 18:15"_s },
             Example{ "de_DE", u"24. Dezember 2027 um 18 Uhr"_s, u"2027-12-24 18:00"_s },
             Example{ "de_DE", u"24. Dezember 27 um 18 Uhr"_s, u"2027-12-24 18:00"_s },
             Example{ "de_DE", u"24.12. 18 Uhr"_s, u"2026-12-24 18:00"_s },
             Example{ "de_DE", u"24.12.2027 9Uhr"_s, u"2027-12-24 09:00"_s },
             Example{ "de_DE", u"24.12.2027 9Uhr30"_s, u"2027-12-24 09:30"_s },
             Example{ "de_DE", u"24. Dezember 24 Uhr"_s, u"2026-12-25 00:00"_s },
             Example{ "de_DE", u"24.12.2027 18:5 Uhr"_s, u"2027-12-24 18:05"_s },
             Example{ "fr_FR", u"24 décembre à 18h30"_s, u"2026-12-24 18:30"_s },
             Example{ "fr_FR", u"24 décembre 2027 à 9 h"_s, u"2027-12-24 09:00"_s },
             Example{ "en_GB", u"24 December at 18:00"_s, u"2026-12-24 18:00"_s },
             Example{ "ja_JP", u"2027-02-01 18時30"_s, u"2027-02-01 18:30"_s },
         }) {
        const DateTimeInput input = typedInput(locale, letters);
        EXPECT_EQ(text(input.fields), meant) << locale << ": " << qPrintable(letters);
        EXPECT_THAT(input.moved, IsEmpty()) << locale << ": " << qPrintable(letters);
    }
}

TEST(DateTimeInputWords, leaveAnHourThatWasNotTypedAsItIs)
{
    EXPECT_EQ(typed("de_DE", u"24. Dezember Uhr"_s), u"2026-12-24 21:05"_s);
    EXPECT_EQ(typed("de_DE", u"24.12.2027 Uhr"_s), u"2027-12-24 21:05"_s);
}

TEST(DateTimeInputWords, moveNothingThatCanBe)
{
    EXPECT_THAT(typedInput("en_US", u"24 Dec 2027 1:30 PM"_s).moved, IsEmpty());
    EXPECT_THAT(typedInput("de_DE", u"Fr., 24. Dez. 2027 9:15"_s).moved, IsEmpty());
}

TEST(DateTimeInputWords, moveADayThatTheMonthDoesNotHave)
{
    const DateTimeInput input = typedInput("en_US", u"31 Feb 2027 9 am"_s);

    EXPECT_EQ(text(input.fields), u"2027-02-28 09:00"_s);
    EXPECT_THAT(input.moved, ElementsAre(DateTimeField::Day));
    EXPECT_EQ(typed("de_DE", u"32. Dez. 2027"_s), u"2027-12-31 21:05"_s);
}

TEST(DateTimeInputWords, leaveTheMonthThatCouldBeSeveralAndTellSo)
{
    const DateTimeInput input = typedInput("en_US", u"Ju 24, 2027"_s);

    EXPECT_EQ(text(input.fields), u"2027-05-24 21:05"_s);
    EXPECT_THAT(input.moved, ElementsAre(DateTimeField::Month));
}

TEST(DateTimeInputWords, goToTheMonthAndBehindIt)
{
    EXPECT_EQ(fieldAfter("de_DE", u"D"_s, DateTimeField::Day), DateTimeField::Month);
    EXPECT_EQ(fieldAfter("de_DE", u"Dez "_s, DateTimeField::Day), DateTimeField::Day);
    EXPECT_EQ(fieldAfter("de_DE", u"24 Dez "_s, DateTimeField::Day), DateTimeField::Year);
    EXPECT_EQ(fieldAfter("de_DE", u"Dez "_s, DateTimeField::Month), DateTimeField::Year);
    EXPECT_EQ(fieldAfter("de_DE", u"Fr"_s, DateTimeField::Day), DateTimeField::Day);
}

TEST(DateTimeInputWords, takeNoLetterThatNoWordHas)
{
    EXPECT_EQ(typed("en_US", u"Dexc 24"_s), u"2026-12-24 21:05"_s);
    EXPECT_EQ(typed("de_DE", u"x"_s), u"2026-05-04 21:05"_s);
}

} // namespace
} // namespace glimmet
