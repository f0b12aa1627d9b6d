#include "tests/support/TestWorld.h"

namespace glimmet {
namespace {

using TickerClock = TickerTest;

TEST_F(TickerClock, movesOnEverySecond)
{
    tick();
    EXPECT_EQ(shown(), u"09:05:08"_s);
    tick(53);
    EXPECT_EQ(shown(), u"09:06:01"_s);
}

TEST_F(TickerClock, canDropTheSeconds)
{
    ticker.setShowSeconds(false);
    tick();

    EXPECT_EQ(shown(), u"09:05"_s);
}

TEST_F(TickerClock, hasNoLeadingZeroIn12Hours)
{
    ticker.setUse24Hour(false);
    tick();

    EXPECT_EQ(shown(), u"9:05:08 am"_s);
}

TEST_F(TickerClock, canDropTheSecondsIn12Hours)
{
    world.clock.set(instantAt(u"2026-05-04T22:05:07Z"_s));
    world.region.setLocale("en_US");
    ticker.setUse24Hour(false);
    ticker.setShowSeconds(false);
    tick();

    EXPECT_EQ(shown(), u"11:05 PM"_s);
}

TEST_F(TickerClock, showsANewTimeZoneAtTheNextTick)
{
    world.region.setZone("Asia/Kolkata");
    EXPECT_EQ(shown(), u"09:05:07"_s);
    tick();

    EXPECT_EQ(shown(), u"13:35:08"_s);
}

TEST_F(TickerClock, showsANewLocaleAtTheNextTick)
{
    world.region.setLocale("ar_EG");
    tick();

    EXPECT_EQ(shown(), u"٠٩:٠٥:٠٨"_s);
}

TEST_F(TickerClock, springsForwardInNewYork)
{
    world.region.setZone("America/New_York");
    world.clock.set(instantAt(u"2026-03-08T06:59:58Z"_s));
    tick();
    EXPECT_EQ(shown(), u"01:59:59"_s);
    tick();
    EXPECT_EQ(shown(), u"03:00:00"_s);
}

} // namespace
} // namespace glimmet
