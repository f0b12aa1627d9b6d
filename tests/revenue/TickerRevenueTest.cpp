#include "tests/support/TestWorld.h"

namespace glimmet {
namespace {

/// A ticker whose first fetch, that of the start, is answered.
class TickerRevenue : public TickerTest {
protected:
    TickerRevenue() { world.revenue.answer(0, u"💰 $1.00"_s); }
    std::size_t fetches() const { return world.revenue.count() - 1; }
};

TEST_F(TickerRevenue, isFetchedAgainEveryFiveMinutes)
{
    world.timers.advance(300s - 1ms);
    EXPECT_EQ(fetches(), 0U);
    world.timers.advance(1ms);
    EXPECT_EQ(fetches(), 1U);
    world.timers.advance(300s);
    EXPECT_EQ(fetches(), 2U);
}

TEST_F(TickerRevenue, isFetchedForTheChoicesOfTheMoment)
{
    ticker.setRevenueProvider(RevenueProvider::Stripe);
    ticker.setStripeAPIKey(u"sk_live_1"_s);
    ticker.setRevenueMode(RevenueMode::Week);
    ticker.setRevenueMetric(RevenueMetric::Top);

    ticker.fetchRevenue();

    EXPECT_EQ(world.revenue.query(1).provider, RevenueProvider::Stripe);
    EXPECT_EQ(world.revenue.query(1).period, RevenueMode::Week);
    EXPECT_EQ(world.revenue.query(1).metric, RevenueMetric::Top);
}

TEST_F(TickerRevenue, isNotFetchedByAChoiceInAnotherMode)
{
    ticker.setRevenueMode(RevenueMode::Week);
    ticker.setRevenueMetric(RevenueMetric::Top);
    ticker.setStripeAPIKey(u"k"_s);

    EXPECT_EQ(fetches(), 0U);
}

TEST_F(TickerRevenue, isFetchedByEveryChoiceInItsModeAlsoByAnEqualOne)
{
    ticker.setMode(TickerMode::Revenue);
    const std::vector<std::function<void()>> assignments{
        [this] { ticker.setRevenueMode(ticker.revenueMode()); },
        [this] { ticker.setRevenueMetric(ticker.revenueMetric()); },
        [this] { ticker.setPolarAPIKey(ticker.polarAPIKey()); },
        [this] { ticker.setRevenueCatAPIKey(ticker.revenueCatAPIKey()); },
        [this] { ticker.setRevenueCatProjectID(ticker.revenueCatProjectID()); },
        [this] { ticker.setDodoAPIKey(ticker.dodoAPIKey()); },
        [this] { ticker.setDodoCurrency(ticker.dodoCurrency()); },
        [this] { ticker.setStripeAPIKey(ticker.stripeAPIKey()); },
        [this] { ticker.setStripeCurrency(ticker.stripeCurrency()); },
        [this] { ticker.setLemonSqueezyAPIKey(ticker.lemonSqueezyAPIKey()); },
    };

    for (std::size_t i = 0; i < assignments.size(); ++i) {
        assignments[i]();
        EXPECT_EQ(fetches(), i + 1);
    }
}

TEST_F(TickerRevenue, isNotFetchedByAChoiceOfThePlatformAlone)
{
    ticker.setMode(TickerMode::Revenue);
    ticker.setRevenueProvider(RevenueProvider::Dodo);

    EXPECT_EQ(fetches(), 0U);
}

TEST_F(TickerRevenue, isFetchedByItsModeCardAlsoByASecondTap)
{
    ticker.chooseMode(TickerMode::Revenue);
    ticker.chooseMode(TickerMode::Revenue);

    EXPECT_EQ(fetches(), 2U);
}

TEST_F(TickerRevenue, isFetchedOnceOrTwiceByATapInItsMode)
{
    ticker.setMode(TickerMode::Revenue);
    const std::size_t before = fetches();

    ticker.setRevenueMetric(RevenueMetric::Orders);
    EXPECT_EQ(fetches(), before + 1);
    ticker.chooseRevenueProvider(RevenueProvider::RevenueCat);
    EXPECT_EQ(fetches(), before + 2);
    ticker.chooseRevenueMode(RevenueMode::Week);
    EXPECT_EQ(fetches(), before + 4);
    ticker.chooseStripeCurrency(u"EUR"_s);
    EXPECT_EQ(fetches(), before + 6);
    ticker.chooseDodoCurrency(u" eur"_s);
    EXPECT_EQ(fetches(), before + 8);

    EXPECT_EQ(ticker.revenueProvider(), RevenueProvider::RevenueCat);
    EXPECT_EQ(ticker.revenueMode(), RevenueMode::Week);
    EXPECT_EQ(ticker.stripeCurrency(), u"EUR"_s);
    EXPECT_EQ(ticker.dodoCurrency(), u" eur"_s);
}

TEST_F(TickerRevenue, isFetchedByATapOnWhatIsChosenAlready)
{
    ticker.setMode(TickerMode::Revenue);
    const std::size_t before = fetches();

    ticker.chooseRevenueProvider(ticker.revenueProvider());
    EXPECT_EQ(fetches(), before + 1);
    ticker.chooseRevenueMode(ticker.revenueMode());
    EXPECT_EQ(fetches(), before + 3);
    ticker.chooseStripeCurrency(ticker.stripeCurrency());
    EXPECT_EQ(fetches(), before + 5);
    ticker.chooseDodoCurrency(ticker.dodoCurrency());
    EXPECT_EQ(fetches(), before + 7);
}

TEST_F(TickerRevenue, isFetchedOnceByATapInAnotherMode)
{
    const std::size_t before = fetches();

    ticker.chooseRevenueProvider(RevenueProvider::RevenueCat);
    ticker.chooseRevenueMode(RevenueMode::Week);
    ticker.chooseStripeCurrency(u"EUR"_s);
    ticker.chooseDodoCurrency(u"EUR"_s);

    EXPECT_EQ(fetches(), before + 4);
}

TEST_F(TickerRevenue, isMarkedAsFetchingUntilTheAnswer)
{
    EXPECT_FALSE(ticker.isFetchingRevenue());
    ticker.fetchRevenue();
    EXPECT_TRUE(ticker.isFetchingRevenue());
    world.revenue.answer(1, u"💰 $5.00"_s);
    EXPECT_FALSE(ticker.isFetchingRevenue());
    EXPECT_EQ(ticker.revenueLabel(), u"💰 $5.00"_s);
}

TEST_F(TickerRevenue, keepsTheLastFigureWhileAFetchIsNeverAnswered)
{
    ticker.setMode(TickerMode::Revenue);
    tick(3600);

    EXPECT_EQ(shown(), u"💰 $1.00"_s);
    EXPECT_TRUE(ticker.isFetchingRevenue());
}

TEST_F(TickerRevenue, isTheAnswerThatArrivesLast)
{
    ticker.fetchRevenue();
    ticker.fetchRevenue();
    world.revenue.answer(2, u"💰 $2.00"_s);
    world.revenue.answer(1, u"💰 $9.00"_s);

    EXPECT_EQ(ticker.revenueLabel(), u"💰 $9.00"_s);
}

TEST_F(TickerRevenue, recordsAnErrorUntilTheNextFetchBegins)
{
    world.revenue.answer(0, u"⚠ invalid key"_s);
    EXPECT_EQ(ticker.revenueLabel(), u"⚠ invalid key"_s);
    EXPECT_EQ(ticker.lastFetchError(), u"⚠ invalid key"_s);

    ticker.handleRevenueResult(u"💰 $5.00"_s);
    EXPECT_EQ(ticker.lastFetchError(), u"⚠ invalid key"_s);

    ticker.fetchRevenue();
    EXPECT_EQ(ticker.lastFetchError(), std::nullopt);
}

TEST_F(TickerRevenue, showsAMissingKeyWithoutRecordingAnError)
{
    world.revenue.answer(0, u"add api key"_s);

    EXPECT_EQ(ticker.revenueLabel(), u"add api key"_s);
    EXPECT_EQ(ticker.lastFetchError(), std::nullopt);
}

} // namespace
} // namespace glimmet
