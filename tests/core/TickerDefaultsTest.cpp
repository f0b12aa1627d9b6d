#include "tests/support/TestWorld.h"

namespace glimmet {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A ticker on its first launch, with neither prices nor revenue to ask.
class TickerDefaults : public testing::Test {
protected:
    TestWorld world;
    TickerViewModel ticker{ { world.clock, world.region, world.timers, world.preferences } };
};

TEST_F(TickerDefaults, showTheClockWithSecondsIn24Hours)
{
    EXPECT_EQ(ticker.mode(), TickerMode::Clock);
    EXPECT_TRUE(ticker.showSeconds());
    EXPECT_TRUE(ticker.use24Hour());
    EXPECT_EQ(ticker.currentDisplay(), u"09:05:07"_s);
}

TEST_F(TickerDefaults, haveAFriendlyCustomText)
{
    EXPECT_EQ(ticker.customText(), u"hello world ✦"_s);
    EXPECT_EQ(ticker.customText().toUtf8(), QByteArray("hello world \xE2\x9C\xA6"));
}

TEST_F(TickerDefaults, askPolarForTheRevenueOfAllTime)
{
    EXPECT_EQ(ticker.revenueProvider(), RevenueProvider::Polar);
    EXPECT_EQ(ticker.revenueMetric(), RevenueMetric::Revenue);
    EXPECT_EQ(ticker.revenueMode(), RevenueMode::AllTime);
}

TEST_F(TickerDefaults, haveNoCredentials)
{
    EXPECT_EQ(ticker.polarAPIKey(), QString());
    EXPECT_EQ(ticker.revenueCatAPIKey(), QString());
    EXPECT_EQ(ticker.revenueCatProjectID(), QString());
    EXPECT_EQ(ticker.dodoAPIKey(), QString());
    EXPECT_EQ(ticker.stripeAPIKey(), QString());
    EXPECT_EQ(ticker.lemonSqueezyAPIKey(), QString());
}

TEST_F(TickerDefaults, countInDollars)
{
    EXPECT_EQ(ticker.dodoCurrency(), u"USD"_s);
    EXPECT_EQ(ticker.stripeCurrency(), u"USD"_s);
}

TEST_F(TickerDefaults, haveADashForRevenueAndNoError)
{
    EXPECT_EQ(ticker.revenueLabel(), QString(QChar(0x2013)));
    EXPECT_FALSE(ticker.isFetchingRevenue());
    EXPECT_EQ(ticker.lastFetchError(), std::nullopt);
    EXPECT_EQ(ticker.lastFetchErrorText(), QString());
}

TEST_F(TickerDefaults, trackTwoSymbolsForTenSecondsEach)
{
    EXPECT_THAT(ticker.cryptoSymbols(), ElementsAre(u"BTC-USD"_s, u"ETH-USD"_s));
    EXPECT_EQ(ticker.cryptoRotateInterval(), 10);
    EXPECT_THAT(ticker.cryptoPrices(), IsEmpty());
    EXPECT_EQ(ticker.currentCryptoIndex(), 0);
}

TEST_F(TickerDefaults, haveNoDeadlinesAndNoQuotesOfTheUsers)
{
    EXPECT_THAT(ticker.deadlines(), IsEmpty());
    EXPECT_THAT(ticker.upcomingDeadlines(), IsEmpty());
    EXPECT_THAT(ticker.customQuotes(), IsEmpty());
    EXPECT_EQ(ticker.quoteRotateInterval(), 30);
}

TEST_F(TickerDefaults, haveTenQuotesByteForByte)
{
    const QList<QByteArray> expected = {
        "stay curious \xE2\x9C\xA6",
        "build something real \xF0\x9F\x9B\xA0",
        "deep work > busy work",
        "one step at a time \xF0\x9F\x8C\xB1",
        "ship it \xF0\x9F\x9A\x80",
        "embrace the process",
        "less noise, more signal",
        "make it count \xE2\x9A\xA1\xEF\xB8\x8F",
        "slow is smooth",
        "focus is a superpower",
    };

    QList<QByteArray> quotes;
    for (const QString &quote : ticker.activeQuotes())
        quotes.append(quote.toUtf8());

    EXPECT_EQ(quotes, expected);
}

TEST_F(TickerDefaults, keepADashInRevenueModeWithoutASource)
{
    ticker.setMode(TickerMode::Revenue);
    ticker.fetchRevenue();
    world.timers.advance(600s);

    EXPECT_EQ(ticker.currentDisplay(), u"–"_s);
    EXPECT_FALSE(ticker.isFetchingRevenue());
}

TEST_F(TickerDefaults, keepLoadingInCryptoModeWithoutASource)
{
    ticker.setMode(TickerMode::Crypto);
    world.timers.advance(1s);

    EXPECT_EQ(ticker.currentDisplay(), u"loading BTC-USD…"_s);
}

} // namespace
} // namespace glimmet
