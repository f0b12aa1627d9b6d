#include "platform/TimeJump.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

/// The readings a tick after another one, with what happened meanwhile.
class TimeJump : public testing::Test {
protected:
    void pass(std::chrono::milliseconds time)
    {
        now.steady += time;
        show(time);
    }
    void sleep(std::chrono::milliseconds time)
    {
        now.asleep += time;
        show(time);
    }
    /// Moves the wall clock alone.
    void show(std::chrono::milliseconds time)
    {
        now.wall = now.wall.advanced(std::chrono::duration<double>(time).count());
    }
    bool hasJumped() const { return hasTimeJumped(before, now); }

    const ClockReadings before{ { 800'020'800.005 }, 5h, 3h };
    ClockReadings now = before;
};

TEST_F(TimeJump, isNoneInATickHoweverLateItIs)
{
    pass(1s);
    EXPECT_FALSE(hasJumped());

    pass(10min);
    EXPECT_FALSE(hasJumped());
}

TEST_F(TimeJump, isASleepAlsoWhereTheClockIsRightBehindIt)
{
    pass(1s);
    sleep(8h);

    EXPECT_TRUE(hasJumped());
}

TEST_F(TimeJump, isASleepFromASecondOn)
{
    sleep(999ms);
    EXPECT_FALSE(hasJumped());

    sleep(1ms);
    EXPECT_TRUE(hasJumped());
}

TEST_F(TimeJump, isAClockThatIsSetByMoreThanHalfAMinuteEitherWay)
{
    for (const int direction : { 1, -1 }) {
        now = before;
        pass(1s);
        show(direction * 30s);
        EXPECT_FALSE(hasJumped()) << direction;

        show(direction * 1s);
        EXPECT_TRUE(hasJumped()) << direction;
    }
}

TEST_F(TimeJump, isNoClockThatIsSlewed)
{
    pass(1h);
    show(1800ms); // As fast as a kernel slews.

    EXPECT_FALSE(hasJumped());
}

} // namespace
} // namespace glimmet
