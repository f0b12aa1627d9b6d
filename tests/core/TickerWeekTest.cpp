#include "tests/support/TestWorld.h"

#include <QSignalSpy>

namespace glimmet {
namespace {

constexpr int secondsOfADay = 24 * 60 * 60;
constexpr int secondsOfAWeek = 7 * secondsOfADay;

using TickerDay = TickerTest;
using TickerWeek = TickerTest;

TEST_F(TickerDay, ofTheClockChangesTheTextEverySecond)
{
    const QSignalSpy changes(&ticker, &TickerViewModel::currentDisplayChanged);

    tick(secondsOfADay);

    EXPECT_EQ(changes.count(), secondsOfADay);
    EXPECT_EQ(shown(), u"09:05:07"_s);
}

TEST_F(TickerWeek, ofQuotesChangesTheTextEveryThirtySeconds)
{
    ticker.setMode(TickerMode::Quote);
    tick();
    const QSignalSpy changes(&ticker, &TickerViewModel::currentDisplayChanged);

    tick(secondsOfAWeek);

    EXPECT_EQ(changes.count(), secondsOfAWeek / 30);
    EXPECT_EQ(shown(), ticker.activeQuotes().at((secondsOfAWeek + 1) / 30 % 10));
}

TEST_F(TickerWeek, refreshesRevenueAndPricesEveryFiveMinutesInAnyMode)
{
    ticker.setMode(TickerMode::Custom);

    tick(secondsOfAWeek);

    EXPECT_EQ(world.revenue.count(), 1U + secondsOfAWeek / 300);
    EXPECT_EQ(world.prices.asked().size(), 2 * (1 + secondsOfAWeek / 300));
}

} // namespace
} // namespace glimmet
