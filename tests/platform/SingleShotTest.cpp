#include "platform/SingleShot.h"
#include "tests/support/ManualTimers.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

class SingleShotTest : public testing::Test {
protected:
    ManualTimers timers;
    int fired = 0;
    SingleShot shot{ timers, 3s, [this] { ++fired; } };
};

TEST_F(SingleShotTest, doesNothingUntilItIsStarted)
{
    timers.advance(1h);

    EXPECT_EQ(fired, 0);
    EXPECT_FALSE(shot.isRunning());
}

TEST_F(SingleShotTest, callsOnceAWhileAfterItsStart)
{
    shot.start();
    timers.advance(2999ms);
    EXPECT_EQ(fired, 0);
    EXPECT_TRUE(shot.isRunning());

    timers.advance(1ms);
    EXPECT_EQ(fired, 1);
    EXPECT_FALSE(shot.isRunning());

    timers.advance(1h);
    EXPECT_EQ(fired, 1);
}

TEST_F(SingleShotTest, beginsAnewWhereItRuns)
{
    shot.start();
    timers.advance(2s);
    shot.start();

    timers.advance(2s);
    EXPECT_EQ(fired, 0);

    timers.advance(1s);
    EXPECT_EQ(fired, 1);
}

TEST_F(SingleShotTest, callsNotWhereItWasStopped)
{
    shot.start();
    timers.advance(2s);

    shot.stop();
    timers.advance(1h);

    EXPECT_EQ(fired, 0);
    EXPECT_TRUE(timers.running().empty());
}

TEST_F(SingleShotTest, canBeStartedAgainAfterItsCall)
{
    shot.start();
    timers.advance(3s);

    shot.start();
    timers.advance(3s);

    EXPECT_EQ(fired, 2);
}

TEST_F(SingleShotTest, takesAnotherDelayFromItsNextStartOn)
{
    shot.start();
    shot.setDelay(10s);
    timers.advance(3s);
    EXPECT_EQ(fired, 1);

    shot.start();
    timers.advance(9s);
    EXPECT_EQ(fired, 1);

    timers.advance(1s);
    EXPECT_EQ(fired, 2);
}

TEST(SingleShot, mayBeStartedByItsOwnCall)
{
    ManualTimers timers;
    int fired = 0;
    std::unique_ptr<SingleShot> shot;
    shot = std::make_unique<SingleShot>(timers, 1s, [&] {
        ++fired;
        EXPECT_FALSE(shot->isRunning());
        shot->start();
    });
    shot->start();

    timers.advance(3s);

    EXPECT_EQ(fired, 3);
    EXPECT_TRUE(shot->isRunning());
}

TEST(SingleShot, mayBeDestroyedByItsOwnCall)
{
    ManualTimers timers;
    std::string told;
    std::unique_ptr<SingleShot> shot;
    shot = std::make_unique<SingleShot>(timers, 1s, [&, text = std::string(100, 'x')] {
        shot.reset();
        told = text; // What the call brought along still lives.
    });
    shot->start();

    timers.advance(1s);

    EXPECT_EQ(told, std::string(100, 'x'));
}

TEST(SingleShot, callsNothingAfterItsEnd)
{
    ManualTimers timers;
    int fired = 0;
    {
        SingleShot shot(timers, 1s, [&fired] { ++fired; });
        shot.start();
    }

    timers.advance(1h);

    EXPECT_EQ(fired, 0);
}

} // namespace
} // namespace glimmet
