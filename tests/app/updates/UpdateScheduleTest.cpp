#include "app/updates/UpdateSchedule.h"
#include "tests/support/ManualTimers.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

class UpdateScheduleTest : public testing::Test {
protected:
    UpdateScheduleTest() { schedule.start(); }

    ManualClock clock;
    ManualTimers timers{ clock };
    int looks = 0;
    UpdateSchedule schedule{ timers, clock, [this] { ++looks; } };
};

TEST_F(UpdateScheduleTest, leavesTheFirstMinuteInPeace)
{
    timers.advance(59s);
    EXPECT_EQ(looks, 0);

    timers.advance(1s);
    EXPECT_EQ(looks, 1);
}

TEST_F(UpdateScheduleTest, looksOnceADay)
{
    timers.advance(1min);

    timers.advance(23h);
    EXPECT_EQ(looks, 1);

    timers.advance(1h);
    EXPECT_EQ(looks, 2);
    timers.advance(48h);
    EXPECT_EQ(looks, 4);
}

TEST_F(UpdateScheduleTest, looksAgainInAnHourWhereItFailed)
{
    timers.advance(1min);
    schedule.tryAgain();

    timers.advance(59min);
    EXPECT_EQ(looks, 1);
    timers.advance(1min);
    EXPECT_EQ(looks, 2);
    schedule.tryAgain();
    timers.advance(1h);
    EXPECT_EQ(looks, 3);

    timers.advance(23h);
    EXPECT_EQ(looks, 3);
    timers.advance(1h);
    EXPECT_EQ(looks, 4);
}

TEST_F(UpdateScheduleTest, countsTheTimeThatTheComputerSleeps)
{
    timers.advance(1min);

    clock.advance(24 * 3600);
    timers.advance(1h);

    EXPECT_EQ(looks, 2);
}

TEST_F(UpdateScheduleTest, isNotPutOffByAClockThatIsSetBack)
{
    timers.advance(1min);

    clock.advance(-365.0 * 24 * 3600);
    timers.advance(1h);

    EXPECT_EQ(looks, 2);
}

} // namespace
} // namespace glimmet
