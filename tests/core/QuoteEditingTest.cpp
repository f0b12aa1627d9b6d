#include "core/PreferencesKeys.h"
#include "tests/support/TestWorld.h"

namespace glimmet {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using QuoteEditing = TickerTest;

TEST_F(QuoteEditing, storesAQuoteWithoutTheBlanksAroundIt)
{
    ticker.addQuote(u" \t slow  down \t"_s);

    EXPECT_THAT(ticker.customQuotes(), ElementsAre(u"slow  down"_s));
}

TEST_F(QuoteEditing, trimsBlanksOfEveryKindButNoLineBreaks)
{
    ticker.addQuote(u"\u00A0\u3000slow\n"_s);

    EXPECT_THAT(ticker.customQuotes(), ElementsAre(u"slow\n"_s));
}

TEST_F(QuoteEditing, refusesAQuoteOfBlanksOnly)
{
    ticker.addQuote(QString());
    ticker.addQuote(u" \t "_s);

    EXPECT_THAT(ticker.customQuotes(), IsEmpty());
}

TEST_F(QuoteEditing, takesALineBreakForAQuote)
{
    ticker.addQuote(u" \n "_s);

    EXPECT_THAT(ticker.customQuotes(), ElementsAre(u"\n"_s));
}

TEST_F(QuoteEditing, addsTheSameQuoteOnce)
{
    ticker.addQuote(u"breathe"_s);
    ticker.addQuote(u"  breathe "_s);

    EXPECT_THAT(ticker.customQuotes(), ElementsAre(u"breathe"_s));
}

TEST_F(QuoteEditing, tellsLetterCaseApart)
{
    ticker.addQuote(u"breathe"_s);
    ticker.addQuote(u"Breathe"_s);

    EXPECT_THAT(ticker.customQuotes(), ElementsAre(u"breathe"_s, u"Breathe"_s));
}

TEST_F(QuoteEditing, addsADefaultQuoteAsTheUsersOwn)
{
    ticker.addQuote(u"ship it 🚀"_s);

    EXPECT_THAT(ticker.activeQuotes(), ElementsAre(u"ship it 🚀"_s));
}

TEST_F(QuoteEditing, removesEveryEqualQuoteAndKeepsTheOrderOfTheRest)
{
    ticker.setCustomQuotes({ u"a"_s, u"b"_s, u"a"_s, u"c"_s });
    ticker.removeQuote(u"a"_s);

    EXPECT_THAT(ticker.customQuotes(), ElementsAre(u"b"_s, u"c"_s));
}

TEST_F(QuoteEditing, removesOnlyTheExactText)
{
    ticker.setCustomQuotes({ u"breathe"_s });
    ticker.removeQuote(u"Breathe"_s);
    ticker.removeQuote(u" breathe"_s);

    EXPECT_THAT(ticker.customQuotes(), ElementsAre(u"breathe"_s));
}

TEST_F(QuoteEditing, neverMergesOwnAndDefaultQuotes)
{
    ticker.addQuote(u"breathe"_s);
    EXPECT_EQ(ticker.activeQuotes().size(), 1);
    ticker.removeQuote(u"breathe"_s);
    EXPECT_EQ(ticker.activeQuotes().size(), 10);
}

TEST_F(QuoteEditing, returnsToTheDefaultQuotesOnReset)
{
    ticker.setCustomQuotes({ u"a"_s, u"b"_s });
    ticker.resetQuotes();

    EXPECT_THAT(ticker.customQuotes(), IsEmpty());
    EXPECT_EQ(ticker.activeQuotes().first(), u"stay curious ✦"_s);
}

TEST_F(QuoteEditing, hasNoLimitOnNumberAndLength)
{
    QStringList many(1000, QString());
    for (qsizetype i = 0; i < many.size(); ++i)
        many[i] = QString::number(i);
    ticker.setCustomQuotes(many);
    ticker.addQuote(QString(100'000, u'x'));

    EXPECT_EQ(ticker.customQuotes().size(), 1001);
    EXPECT_EQ(ticker.customQuotes().last().size(), 100'000);
}

TEST_F(QuoteEditing, replacesAQuoteInItsPlace)
{
    ticker.setCustomQuotes({ u"a"_s, u"b"_s, u"c"_s });

    ticker.replaceQuote(u"b"_s, u" slow down\t"_s);

    EXPECT_THAT(ticker.customQuotes(), ElementsAre(u"a"_s, u"slow down"_s, u"c"_s));
    EXPECT_EQ(world.preferences.stringList(PreferencesKeys::quotes), ticker.customQuotes());
}

TEST_F(QuoteEditing, replacesNothingByWhatCouldNotBeAdded)
{
    ticker.setCustomQuotes({ u"a"_s, u"b"_s });

    ticker.replaceQuote(u"b"_s, u" \t "_s);
    ticker.replaceQuote(u"b"_s, u" a"_s);
    ticker.replaceQuote(u"b"_s, u"b "_s);
    ticker.replaceQuote(u"x"_s, u"y"_s);

    EXPECT_THAT(ticker.customQuotes(), ElementsAre(u"a"_s, u"b"_s));
}

} // namespace
} // namespace glimmet
