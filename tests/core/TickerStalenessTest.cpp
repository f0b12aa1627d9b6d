#include "tests/support/TestWorld.h"

#include <QSignalSpy>

namespace glimmet {
namespace {

/// A ticker whose fetches of the start are answered.
class TickerStaleness : public TickerTest {
protected:
    TickerStaleness()
    {
        ticker.setCryptoSymbols({ u"A"_s });
        ticker.fetchAllCryptoPrices();
        answerPrice();
        world.revenue.answer(0, u"💰 $1.00"_s);
        tick();
    }
    void answerPrice() { answerPrice(CryptoPrice{ u"A"_s, 105, 25, {} }); }
    void answerPrice(const PriceResult &result)
    {
        world.prices.answer(static_cast<std::size_t>(world.prices.asked().lastIndexOf(u"A"_s)), result);
    }
    /// Whether it is stale at the next tick in that mode.
    bool isStaleIn(TickerMode mode)
    {
        ticker.setMode(mode);
        tick();
        return ticker.isDisplayStale();
    }
};

TEST_F(TickerStaleness, isToldOfAnErrorFromTheTickThatShowsIt)
{
    ticker.setMode(TickerMode::Revenue);
    tick();
    EXPECT_FALSE(ticker.isDisplayStale());
    ticker.fetchRevenue();
    world.revenue.answer(1, u"⚠ http 500"_s);
    EXPECT_FALSE(ticker.isDisplayStale());

    tick();

    EXPECT_EQ(shown(), u"⚠ http 500"_s);
    EXPECT_TRUE(ticker.isDisplayStale());
    ticker.fetchRevenue();
    world.revenue.answer(2, u"💰 $1.00"_s);
    tick();
    EXPECT_FALSE(ticker.isDisplayStale());
}

TEST_F(TickerStaleness, isToldOfAFigureAndAPriceThatAreOlderThanTwoRefreshes)
{
    EXPECT_FALSE(isStaleIn(TickerMode::Revenue));
    EXPECT_FALSE(isStaleIn(TickerMode::Crypto));
    tick(600);

    EXPECT_TRUE(isStaleIn(TickerMode::Crypto));
    EXPECT_TRUE(isStaleIn(TickerMode::Revenue));
}

TEST_F(TickerStaleness, isToldOfASymbolThatGaveNoPriceTwice)
{
    ticker.setMode(TickerMode::Crypto);
    ticker.fetchAllCryptoPrices();
    answerPrice(PriceFailure::NotFound);
    EXPECT_FALSE(isStaleIn(TickerMode::Crypto));

    ticker.fetchAllCryptoPrices();
    answerPrice(PriceFailure::NotFound);

    EXPECT_TRUE(isStaleIn(TickerMode::Crypto));
    EXPECT_EQ(shown(), u"A $105 (↑25.0%)"_s);
}

TEST_F(TickerStaleness, changesWithTheModeAtOnce)
{
    ticker.setMode(TickerMode::Revenue);
    tick(1200);
    ASSERT_TRUE(ticker.isDisplayStale());
    QSignalSpy changes(&ticker, &TickerViewModel::isDisplayStaleChanged);

    ticker.setMode(TickerMode::Clock);
    EXPECT_FALSE(ticker.isDisplayStale());
    ticker.setMode(TickerMode::Crypto);
    EXPECT_TRUE(ticker.isDisplayStale());
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(TickerStaleness, endsAtOnceWhereAChosenModeShowsThatAKeyIsMissing)
{
    ticker.setRevenueProvider(RevenueProvider::Stripe);
    ticker.setStripeAPIKey(u"sk_1"_s);
    ticker.fetchRevenue();
    world.revenue.answer(1, u"⚠ http 500"_s);
    ticker.setStripeAPIKey({});

    ticker.chooseMode(TickerMode::Revenue);

    EXPECT_EQ(ticker.revenueLabel(), u"add api key"_s);
    EXPECT_FALSE(ticker.isDisplayStale());
}

TEST_F(TickerStaleness, isNothingOfWhatIsNotFetched)
{
    ticker.setCustomText(u"⚠ mind the gap"_s);
    ticker.fetchRevenue();
    world.revenue.answer(1, u"⚠ http 500"_s);
    tick(1200);

    for (const TickerMode mode :
        { TickerMode::Clock, TickerMode::Quote, TickerMode::Custom, TickerMode::Deadline })
        EXPECT_FALSE(isStaleIn(mode)) << static_cast<int>(mode);
    EXPECT_TRUE(isStaleIn(TickerMode::Revenue));
}

TEST_F(TickerStaleness, endsWithTheFetchThatASleepCauses)
{
    ticker.setMode(TickerMode::Revenue);
    tick();
    world.sleep(1h);
    tick();
    EXPECT_TRUE(ticker.isDisplayStale());

    world.revenue.answer(world.revenue.count() - 1, u"💰 $2.00"_s);
    tick();

    EXPECT_FALSE(ticker.isDisplayStale());
}

} // namespace
} // namespace glimmet
