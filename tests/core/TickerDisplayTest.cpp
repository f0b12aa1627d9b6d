#include "tests/support/TestWorld.h"

namespace glimmet {
namespace {

using TickerDisplay = TickerTest;

TEST_F(TickerDisplay, changesWithTheModeAtTheNextTickAndNotBefore)
{
    ticker.setMode(TickerMode::Custom);
    EXPECT_EQ(shown(), u"09:05:07"_s);

    world.timers.advance(999ms);
    EXPECT_EQ(shown(), u"09:05:07"_s);

    world.timers.advance(1ms);
    EXPECT_EQ(shown(), u"hello world ✦"_s);
}

TEST_F(TickerDisplay, changesWithAnyOptionAtTheNextTickAndNotBefore)
{
    ticker.setMode(TickerMode::Custom);
    tick();

    ticker.setCustomText(u"lunch"_s);
    EXPECT_EQ(shown(), u"hello world ✦"_s);
    tick();
    EXPECT_EQ(shown(), u"lunch"_s);
}

TEST_F(TickerDisplay, isSpokenWithoutTheSecondsOfTheClock)
{
    EXPECT_EQ(ticker.spokenDisplay(), u"09:05"_s);

    ticker.setUse24Hour(false);

    EXPECT_EQ(ticker.spokenDisplay(), u"9:05 am"_s);
}

TEST_F(TickerDisplay, isSpokenAsItIsShownInOtherModes)
{
    ticker.setMode(TickerMode::Custom);
    ticker.setCustomText(u"lunch at 12:00:00"_s);
    tick();

    EXPECT_EQ(ticker.spokenDisplay(), shown());
    EXPECT_EQ(ticker.spokenDisplay(), u"lunch at 12:00:00"_s);
}

TEST_F(TickerDisplay, isTheProductsNameWhereTheCustomTextIsEmpty)
{
    ticker.setMode(TickerMode::Custom);
    ticker.setCustomText(QString());
    tick();

    EXPECT_EQ(shown(), u"glimmet"_s);
}

TEST_F(TickerDisplay, keepsACustomTextOfBlanks)
{
    ticker.setMode(TickerMode::Custom);
    ticker.setCustomText(u"   "_s);
    tick();

    EXPECT_EQ(shown(), u"   "_s);
}

TEST_F(TickerDisplay, keepsLineBreaksAndMarkupOfACustomText)
{
    ticker.setMode(TickerMode::Custom);
    ticker.setCustomText(u"a\nb <b>&amp;</b>\t_"_s);
    tick();

    EXPECT_EQ(shown(), u"a\nb <b>&amp;</b>\t_"_s);
}

TEST_F(TickerDisplay, isADashInRevenueModeUntilTheFirstAnswer)
{
    ticker.setMode(TickerMode::Revenue);
    tick();
    EXPECT_EQ(shown(), u"–"_s);

    world.revenue.answer(0, u"💰 $5.00"_s);
    EXPECT_EQ(shown(), u"–"_s);
    tick();
    EXPECT_EQ(shown(), u"💰 $5.00"_s);
}

TEST_F(TickerDisplay, showsAPriceFetchedByTheSameTick)
{
    ticker.setCryptoSymbols({ u"A"_s });
    ticker.setCryptoRotateInterval(1);
    ticker.setMode(TickerMode::Crypto);
    world.prices.answerAtOnce({ u"A"_s, 2, 0, {} });

    tick();

    EXPECT_EQ(shown(), u"A $2.00 (↑0.0%)"_s);
}

TEST_F(TickerDisplay, countsATickForTheDeadlinesAfterThePrices)
{
    ticker.setDeadlines({ world.deadline(u"first"_s, 5000), world.deadline(u"second"_s, 6000) });
    ticker.setMode(TickerMode::Crypto);
    const auto toDeadlines = [this] { ticker.setMode(TickerMode::Deadline); };
    QObject::connect(&ticker, &TickerViewModel::currentCryptoIndexChanged, &ticker, toDeadlines);

    tick(10); // The tenth moves the prices on, so the deadlines have counted one tick at its end.
    tick(6);
    EXPECT_TRUE(shown().startsWith(u"first"_s));
    tick();
    EXPECT_TRUE(shown().startsWith(u"second"_s));
}

TEST_F(TickerDisplay, countsATickForTheQuotesBeforeThePrices)
{
    ticker.setQuoteRotateInterval(2);
    ticker.setMode(TickerMode::Crypto);
    const auto toQuotes = [this] { ticker.setMode(TickerMode::Quote); };
    QObject::connect(&ticker, &TickerViewModel::currentCryptoIndexChanged, &ticker, toQuotes);

    tick(10); // The tenth moves the prices on, when the quotes have had their turn in it.
    EXPECT_EQ(shown(), u"stay curious ✦"_s);
    tick();
    EXPECT_EQ(shown(), u"stay curious ✦"_s);
    tick();
    EXPECT_EQ(shown(), u"build something real 🛠"_s);
}

} // namespace
} // namespace glimmet
