#include "ui/editors/DateWord.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using Kind = DateWordKind;

DateWord wordOf(const char *locale, const QString &letters)
{
    return dateWordOf(letters, { dateWords(locale), dateWords("en") });
}

constexpr DateWord month(int number)
{
    return { Kind::Month, number };
}

TEST(DateWord, isAMonthByItsWholeName)
{
    EXPECT_EQ(wordOf("en_US", u"Dec"_s), month(12));
    EXPECT_EQ(wordOf("en_US", u"december"_s), month(12));
    EXPECT_EQ(wordOf("de_DE", u"März"_s), month(3));
    EXPECT_EQ(wordOf("fr_FR", u"AOÛT"_s), month(8));
    EXPECT_EQ(wordOf("el_GR", u"Δεκεμβρίου"_s), month(12));
    EXPECT_EQ(wordOf("cs_CZ", u"červen"_s), month(6));
    EXPECT_EQ(wordOf("cs_CZ", u"červenec"_s), month(7));
}

TEST(DateWord, isAMonthAsSoonAsNoOtherBeginsSo)
{
    EXPECT_EQ(wordOf("en_US", u"D"_s), month(12));
    EXPECT_EQ(wordOf("en_US", u"Jul"_s), month(7));
    EXPECT_EQ(wordOf("en_US", u"Ju"_s), DateWord{ Kind::MonthBeginning });
    EXPECT_EQ(wordOf("en_US", u"M"_s), DateWord{ Kind::MonthBeginning });
}

TEST(DateWord, isReadInTheLocalesLanguageFirst)
{
    EXPECT_EQ(wordOf("fi_FI", u"mar"_s), month(11));
    EXPECT_EQ(wordOf("de_DE", u"May"_s), month(5));
    EXPECT_EQ(wordOf("de_DE", u"Oct"_s), month(10));
    EXPECT_EQ(wordOf("ja_JP", u"Oct"_s), month(10));
}

TEST(DateWord, isAnotherWordOfADate)
{
    EXPECT_EQ(wordOf("de_DE", u"Fr"_s), DateWord{ Kind::Other });
    EXPECT_EQ(wordOf("de_DE", u"Samstag"_s), DateWord{ Kind::Other });
    EXPECT_EQ(wordOf("es_ES", u"de"_s), DateWord{ Kind::Other });
    EXPECT_EQ(wordOf("en_GB", u"th"_s), DateWord{ Kind::Other });
    EXPECT_EQ(wordOf("de_DE", u"Thursd"_s), DateWord{ Kind::Other });
}

TEST(DateWord, isAMonthRatherThanAWeekdayOfTheSameName)
{
    EXPECT_EQ(wordOf("es_ES", u"mar"_s), month(3));
}

TEST(DateWord, isNoneWhereNothingBeginsSo)
{
    for (const QString &letters : { u""_s, u"x"_s, u"Dex"_s, u"Decembers"_s, u"."_s })
        EXPECT_EQ(wordOf("en_US", letters), DateWord{}) << qPrintable(letters);
}

TEST(DateWord, isNoMonthWhereTheMonthsAreNumbers)
{
    EXPECT_EQ(wordOf("ja_JP", u"月"_s).month, 0);
    EXPECT_EQ(wordOf("ko_KR", u"월"_s).month, 0);
}

} // namespace
} // namespace glimmet
