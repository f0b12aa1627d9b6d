#include "tests/support/TestWorld.h"

#include <QSignalSpy>

namespace glimmet {
namespace {

using testing::IsEmpty;

class TickerLifetime : public testing::Test {
protected:
    TestWorld world;
    std::unique_ptr<TickerViewModel> ticker = std::make_unique<TickerViewModel>(world.forTicker());
};

TEST_F(TickerLifetime, stopsAllThreeTimersByStop)
{
    ticker->stop();

    EXPECT_THAT(world.timers.running(), IsEmpty());
}

TEST_F(TickerLifetime, doesNothingAfterStopHoweverMuchTimePasses)
{
    const QSignalSpy changes(ticker.get(), &TickerViewModel::currentDisplayChanged);
    const auto asked = world.prices.asked();

    ticker->stop();
    world.timers.advance(3600s);

    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(ticker->currentDisplay(), u"09:05:07"_s);
    EXPECT_EQ(world.revenue.count(), 1U);
    EXPECT_EQ(world.prices.asked(), asked);
}

TEST_F(TickerLifetime, bearsASecondStop)
{
    ticker->stop();
    ticker->stop();

    EXPECT_THAT(world.timers.running(), IsEmpty());
}

TEST_F(TickerLifetime, goesOnAfterStopAndStart)
{
    ticker->stop();
    ticker->start();
    world.timers.advance(1s);

    EXPECT_EQ(ticker->currentDisplay(), u"09:05:08"_s);
}

TEST_F(TickerLifetime, mayBeStoppedByWhoHearsOfATick)
{
    QObject::connect(
        ticker.get(), &TickerViewModel::currentDisplayChanged, ticker.get(), [this] { ticker->stop(); });

    world.timers.advance(10s);

    EXPECT_EQ(ticker->currentDisplay(), u"09:05:08"_s);
}

TEST_F(TickerLifetime, stopsAllThreeTimersByDestruction)
{
    ticker.reset();
    world.timers.advance(3600s);

    EXPECT_THAT(world.timers.running(), IsEmpty());
    EXPECT_EQ(world.revenue.count(), 1U);
}

TEST_F(TickerLifetime, dropsAPriceThatArrivesAfterItIsGone)
{
    ticker.reset();

    world.prices.answer(0, CryptoPrice{ u"BTC-USD"_s, 97'012, 1.3, {} });
    world.prices.answer(1, PriceFailure::Unreadable);
}

TEST_F(TickerLifetime, dropsAFigureThatArrivesAfterItIsGone)
{
    ticker.reset();

    world.revenue.answer(0, u"💰 $5.00"_s);
}

} // namespace
} // namespace glimmet
