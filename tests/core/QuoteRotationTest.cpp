#include "tests/support/TestWorld.h"

namespace glimmet {
namespace {

class QuoteRotation : public TickerTest {
protected:
    QuoteRotation() { ticker.setMode(TickerMode::Quote); }
    /// The texts of the next `count` ticks.
    QStringList shownDuring(int count)
    {
        QStringList texts;
        for (int i = 0; i < count; ++i) {
            tick();
            texts.append(shown());
        }
        return texts;
    }
};

TEST_F(QuoteRotation, showsTheFirstQuoteForThirtyTicks)
{
    tick(29);
    EXPECT_EQ(shown(), u"stay curious ✦"_s);
    tick();
    EXPECT_EQ(shown(), u"build something real 🛠"_s);
    tick(29);
    EXPECT_EQ(shown(), u"build something real 🛠"_s);
    tick();
    EXPECT_EQ(shown(), u"deep work > busy work"_s);
}

TEST_F(QuoteRotation, wrapsFromTheTenthDefaultQuoteToTheFirst)
{
    tick(9 * 30);
    EXPECT_EQ(shown(), u"focus is a superpower"_s);
    tick(30);
    EXPECT_EQ(shown(), u"stay curious ✦"_s);
}

TEST_F(QuoteRotation, advancesOnEveryTickWithIntervalZeroOneOrLess)
{
    ticker.setCustomQuotes({ u"a"_s, u"b"_s, u"c"_s });
    for (const qint64 interval : { 0, 1, -5 }) {
        ticker.setQuoteRotateInterval(interval);
        EXPECT_EQ(shownDuring(3), QStringList({ u"b"_s, u"c"_s, u"a"_s })) << interval;
    }
}

TEST_F(QuoteRotation, followsAChangedIntervalAtOnce)
{
    tick(20);
    ticker.setQuoteRotateInterval(15);
    tick();

    EXPECT_EQ(shown(), u"build something real 🛠"_s);
}

TEST_F(QuoteRotation, countsNoTicksOfOtherModes)
{
    tick(29);
    ticker.setMode(TickerMode::Clock);
    tick(1000);
    ticker.setMode(TickerMode::Quote);
    tick();

    EXPECT_EQ(shown(), u"build something real 🛠"_s);
}

TEST_F(QuoteRotation, doesNotCountBeforeTheModeIsEnteredFirst)
{
    ticker.setMode(TickerMode::Clock);
    tick(29);
    ticker.setMode(TickerMode::Quote);
    tick();

    EXPECT_EQ(shown(), u"stay curious ✦"_s);
}

TEST_F(QuoteRotation, keepsItsCountOverOtherModes)
{
    tick(20);
    ticker.setMode(TickerMode::Custom);
    tick(20);
    ticker.setMode(TickerMode::Quote);
    tick(9);
    EXPECT_EQ(shown(), u"stay curious ✦"_s);
    tick();
    EXPECT_EQ(shown(), u"build something real 🛠"_s);
}

TEST_F(QuoteRotation, neverLeavesASingleQuote)
{
    ticker.setQuoteRotateInterval(1);
    ticker.addQuote(u"breathe"_s);
    EXPECT_EQ(shownDuring(3), QStringList({ u"breathe"_s, u"breathe"_s, u"breathe"_s }));

    ticker.addQuote(u"again"_s);
    EXPECT_EQ(shownDuring(2), QStringList({ u"again"_s, u"breathe"_s }));
}

TEST_F(QuoteRotation, startsCountingAnewThoughASingleQuoteStays)
{
    ticker.addQuote(u"breathe"_s);
    tick(30);
    ticker.addQuote(u"again"_s);
    tick(29);
    EXPECT_EQ(shown(), u"breathe"_s);
    tick();
    EXPECT_EQ(shown(), u"again"_s);
}

TEST_F(QuoteRotation, goesOnByTheIndexModuloTheCountAfterAShrink)
{
    ticker.setCustomQuotes({ u"a"_s, u"b"_s, u"c"_s, u"d"_s });
    tick(90);
    EXPECT_EQ(shown(), u"d"_s);

    ticker.setCustomQuotes({ u"a"_s, u"b"_s });
    tick();
    EXPECT_EQ(shown(), u"b"_s);
    tick(29);
    EXPECT_EQ(shown(), u"a"_s);
}

TEST_F(QuoteRotation, showsTheFirstCustomQuoteWhateverTheIndexWas)
{
    tick(120);
    ticker.addQuote(u"breathe"_s);
    tick();

    EXPECT_EQ(shown(), u"breathe"_s);
}

TEST_F(QuoteRotation, bringsTheDefaultQuotesBackAtTheIndexThatItHad)
{
    tick(60);
    ticker.addQuote(u"breathe"_s);
    tick();
    ticker.removeQuote(u"breathe"_s);
    tick();

    EXPECT_EQ(shown(), u"deep work > busy work"_s);
}

} // namespace
} // namespace glimmet
