#include "tests/support/TestWorld.h"

namespace glimmet {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A ticker whose fetches of the start are answered; those are left out of what is counted.
class TickerTimeJump : public TickerTest {
protected:
    TickerTimeJump()
    {
        world.revenue.answer(0, u"💰 $1.00"_s);
        world.timers.advance(100s);
    }
    std::size_t revenueFetches() const { return world.revenue.count() - 1; }
    QStringList pricesAsked() const { return world.prices.asked().sliced(2); }
};

TEST_F(TickerTimeJump, bySleepRefreshesRevenueAndPricesWithTheNextTick)
{
    world.sleep(std::chrono::hours(8));
    world.timers.advance(999ms);
    EXPECT_EQ(revenueFetches(), 0U);

    world.timers.advance(1ms);

    EXPECT_EQ(revenueFetches(), 1U);
    EXPECT_THAT(pricesAsked(), ElementsAre(u"BTC-USD"_s, u"ETH-USD"_s));
    EXPECT_EQ(shown(), u"17:06:48"_s);
}

TEST_F(TickerTimeJump, byASetClockRefreshesThemEitherWay)
{
    world.clock.advance(3600);
    tick();
    EXPECT_EQ(revenueFetches(), 1U);

    world.clock.advance(-60);
    tick();
    EXPECT_EQ(revenueFetches(), 2U);
    EXPECT_EQ(pricesAsked().size(), 4);
}

TEST_F(TickerTimeJump, refreshesThemOnceAndThenEveryFiveMinutesFromThereOn)
{
    world.sleep(std::chrono::hours(8));
    tick();
    world.revenue.answer(1, u"💰 $2.00"_s);

    world.timers.advance(299s);
    EXPECT_EQ(revenueFetches(), 1U);
    world.timers.advance(1s);
    EXPECT_EQ(revenueFetches(), 2U);
    EXPECT_EQ(pricesAsked().size(), 4);
}

TEST_F(TickerTimeJump, isNoneWhereTheClockIsSetByHalfAMinuteOrSlewed)
{
    world.clock.advance(29);
    tick();
    for (int second = 0; second < 120; ++second) {
        world.clock.advance(0.0005);
        tick();
    }

    EXPECT_EQ(revenueFetches(), 0U);
    EXPECT_THAT(pricesAsked(), IsEmpty());
}

TEST_F(TickerTimeJump, keepsTheFigureInTheMenuBarUntilTheNetworkIsThere)
{
    ticker.setMode(TickerMode::Revenue);
    world.sleep(std::chrono::hours(8));
    tick();

    world.revenue.failWithoutNetwork(1);
    tick(5);
    EXPECT_EQ(shown(), u"💰 $1.00"_s);

    world.revenue.answer(2, u"💰 $2.00"_s);
    tick();
    EXPECT_EQ(shown(), u"💰 $2.00"_s);
}

TEST_F(TickerTimeJump, leavesNothingRunningAfterStop)
{
    world.sleep(std::chrono::hours(8));
    tick();
    world.revenue.failWithoutNetwork(1);

    ticker.stop();
    world.timers.advance(1h);

    EXPECT_THAT(world.timers.running(), IsEmpty());
    EXPECT_EQ(revenueFetches(), 1U);
}

TEST_F(TickerTimeJump, countsNothingThatHappenedWhileItWasStopped)
{
    ticker.stop();
    world.sleep(std::chrono::hours(8));

    ticker.start();
    tick();

    EXPECT_EQ(revenueFetches(), 1U);
}

TEST_F(TickerTimeJump, countsAsOneTickOfARotation)
{
    ticker.setMode(TickerMode::Quote);
    ticker.setCustomQuotes({ u"a"_s, u"b"_s });
    ticker.setQuoteRotateInterval(3);
    tick(2);
    EXPECT_EQ(shown(), u"a"_s);

    world.sleep(std::chrono::hours(8));
    tick();
    EXPECT_EQ(shown(), u"b"_s);
    tick(2);
    EXPECT_EQ(shown(), u"b"_s);
}

} // namespace
} // namespace glimmet
