#include "platform/SteadyClock.h"
#include "tests/support/ManualClock.h"

#include <QThread>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

TEST(SystemSteadyClock, goesForwardAsTimePasses)
{
    const SystemSteadyClock clock;
    const auto before = clock.elapsed();

    QThread::msleep(2);

    EXPECT_GE(clock.elapsed() - before, 2ms);
}

TEST(Stopwatch, tellsWhetherItWasStartedLongerAgo)
{
    ManualClock clock;
    Stopwatch watch(clock);
    clock.pass(1h);
    watch.start();

    clock.pass(400ms);
    EXPECT_FALSE(watch.hasPassed(400ms));

    clock.pass(1ns);
    EXPECT_TRUE(watch.hasPassed(400ms));
    EXPECT_FALSE(watch.hasPassed(1s));
}

TEST(Stopwatch, countsFromItsLastStart)
{
    ManualClock clock;
    Stopwatch watch(clock);
    watch.start();
    clock.pass(2s);

    watch.start();

    EXPECT_FALSE(watch.hasPassed(1s));
}

TEST(Stopwatch, takesWhatNeverHappenedForLongAgo)
{
    const ManualClock clock;
    Stopwatch watch(clock);
    EXPECT_TRUE(watch.hasPassed(1h));

    watch.start();
    watch.reset();

    EXPECT_TRUE(watch.hasPassed(1h));
}

TEST(Stopwatch, doesNotCareWhatTheTimeOfDayIsSetTo)
{
    ManualClock clock;
    Stopwatch watch(clock);
    watch.start();

    clock.set(clock.now().advanced(86'400));

    EXPECT_FALSE(watch.hasPassed(1s));
}

} // namespace
} // namespace glimmet
