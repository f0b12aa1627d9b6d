#include "platform/DateWords.h"

#include <gmock/gmock.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::IsSupersetOf;

QStringList month(const char *locale, int number)
{
    return dateWords(locale).months.value(number - 1);
}

TEST(DateWords, haveTheMonthsLongAndShort)
{
    EXPECT_THAT(month("en", 12), IsSupersetOf({ u"December"_s, u"Dec"_s }));
    EXPECT_THAT(month("de_DE", 3), Contains(u"März"_s));
    EXPECT_THAT(month("de_DE", 12), IsSupersetOf({ u"Dezember"_s, u"Dez."_s }));
    EXPECT_EQ(dateWords("de_DE").months.size(), 12);
}

TEST(DateWords, haveAMonthAloneAndInADate)
{
    EXPECT_THAT(month("ru_RU", 5), IsSupersetOf({ u"мая"_s, u"май"_s }));
}

TEST(DateWords, haveAMonthWithThePrefixThatItHasInADate)
{
    EXPECT_THAT(month("he_IL", 12), IsSupersetOf({ u"דצמבר"_s, u"בדצמבר"_s, u"דצמ׳"_s }));
}

TEST(DateWords, haveTheWeekdaysAndWhatStandsBetween)
{
    EXPECT_THAT(dateWords("de_DE").others, IsSupersetOf({ u"Freitag"_s, u"Fr."_s }));
    EXPECT_THAT(dateWords("es_ES").others, IsSupersetOf({ u"viernes"_s, u"de"_s }));
}

TEST(DateWords, haveWhatStandsBeforeATime)
{
    EXPECT_THAT(dateWords("de_DE").others, Contains(u"um"_s));
    EXPECT_THAT(dateWords("fr_FR").others, Contains(u"à"_s));
}

TEST(DateWords, haveWhatStandsBesideAnHour)
{
    EXPECT_EQ(dateWords("de_DE").ofHour, QStringList(u"Uhr"_s));
    EXPECT_EQ(dateWords("fr_FR").ofHour, QStringList(u"h"_s));
    EXPECT_EQ(dateWords("ja_JP").ofHour, QStringList(u"時"_s));
    EXPECT_EQ(dateWords("en_GB").ofHour, QStringList());
}

TEST(DateWords, areGregorianWhateverTheLocalesCalendar)
{
    EXPECT_THAT(month("fa_IR", 12), Contains(u"دسامبر"_s));
}

TEST(DateWords, areThereForALocaleThatIsNotKnown)
{
    EXPECT_EQ(dateWords("zz_ZZ").months.size(), 12);
}

} // namespace
} // namespace glimmet
