#include "tests/support/TestWorld.h"

namespace glimmet {
namespace {

class TickerRelaunch : public testing::Test {
protected:
    void relaunch()
    {
        ticker.reset();
        ticker = std::make_unique<TickerViewModel>(world.forTicker());
    }

    TestWorld world;
    std::unique_ptr<TickerViewModel> ticker = std::make_unique<TickerViewModel>(world.forTicker());
};

TEST_F(TickerRelaunch, bringsBackTheThreeLists)
{
    const QList<Deadline> deadlines{ world.deadline(u"launch \"v2\" 🚀"_s, 0.1),
        world.deadline(u""_s, -1e9) };
    ticker->setDeadlines(deadlines);
    ticker->setCustomQuotes({ u"breathe"_s, u"two\nlines"_s });
    ticker->setCryptoSymbols({ u"TSLA"_s });

    relaunch();

    EXPECT_EQ(ticker->deadlines(), deadlines);
    EXPECT_EQ(ticker->customQuotes(), QStringList({ u"breathe"_s, u"two\nlines"_s }));
    EXPECT_EQ(ticker->cryptoSymbols(), QStringList{ u"TSLA"_s });
}

TEST_F(TickerRelaunch, startsWithTheClockAndItsOptionsAnew)
{
    ticker->setMode(TickerMode::Custom);
    ticker->setCustomText(u"lunch"_s);
    ticker->setShowSeconds(false);
    ticker->setUse24Hour(false);

    relaunch();

    EXPECT_EQ(ticker->mode(), TickerMode::Clock);
    EXPECT_EQ(ticker->customText(), u"hello world ✦"_s);
    EXPECT_EQ(ticker->currentDisplay(), u"09:05:07"_s);
}

TEST_F(TickerRelaunch, startsWithTheRevenueChoicesAndIntervalsAnew)
{
    ticker->setRevenueProvider(RevenueProvider::Dodo);
    ticker->setRevenueMetric(RevenueMetric::Top);
    ticker->setRevenueMode(RevenueMode::Today);
    ticker->setDodoCurrency(u"EUR"_s);
    ticker->setQuoteRotateInterval(5);
    ticker->setCryptoRotateInterval(60);

    relaunch();

    EXPECT_EQ(ticker->revenueProvider(), RevenueProvider::Polar);
    EXPECT_EQ(ticker->revenueMetric(), RevenueMetric::Revenue);
    EXPECT_EQ(ticker->revenueMode(), RevenueMode::AllTime);
    EXPECT_EQ(ticker->dodoCurrency(), u"USD"_s);
    EXPECT_EQ(ticker->quoteRotateInterval(), 30);
    EXPECT_EQ(ticker->cryptoRotateInterval(), 10);
}

TEST_F(TickerRelaunch, startsTheRotationsAtTheFirstEntry)
{
    ticker->setMode(TickerMode::Quote);
    world.timers.advance(45s);
    EXPECT_EQ(ticker->currentDisplay(), u"build something real 🛠"_s);

    relaunch();
    ticker->setMode(TickerMode::Quote);
    world.timers.advance(29s);
    EXPECT_EQ(ticker->currentDisplay(), u"stay curious ✦"_s);
    world.timers.advance(1s);
    EXPECT_EQ(ticker->currentDisplay(), u"build something real 🛠"_s);
}

} // namespace
} // namespace glimmet
