#include "platform/SecondTimer.h"

#include "platform/SteadyClock.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/Printing.h"

#include <QTest>

#include <gmock/gmock.h>

#include <cmath>
#include <memory>
#include <vector>

namespace glimmet {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::Ge;
using testing::IsEmpty;
using testing::Le;

constexpr Instant noon{ 800'020'800 };

double second(Instant moment)
{
    return std::floor(moment.secondsSince2001);
}

TEST(UntilTick, isFromAnywhereInASecondToJustBehindTheNextOne)
{
    for (const auto &[phase, expected] : std::vector<std::pair<double, std::chrono::milliseconds>>{
             { 0, 1005ms }, { 0.25, 755ms }, { 0.5, 505ms }, { 0.75, 255ms }, { 0.9995, 6ms } }) {
        const Instant now = noon.advanced(phase);

        EXPECT_EQ(nextFullSecond(now), noon.advanced(1));
        EXPECT_EQ(untilTick(nextFullSecond(now), now), expected) << phase;
    }
}

TEST(TickOfASecond, isDueFromTwoMillisecondsBehindItOn)
{
    EXPECT_FALSE(isTickDue(noon, noon.advanced(-0.001)));
    EXPECT_FALSE(isTickDue(noon, noon));
    EXPECT_FALSE(isTickDue(noon, noon.advanced(0.0015)));
    EXPECT_TRUE(isTickDue(noon, noon.advanced(0.0025)));
    EXPECT_TRUE(isTickDue(noon, noon.advanced(0.9)));
    EXPECT_TRUE(isTickDue(noon, noon.advanced(3600)));
}

/// A timer with a clock that is moved by hand; it begins a quarter of a second after noon.
class SecondTimerTest : public testing::Test {
protected:
    SecondTimerTest()
    {
        clock.set(noon.advanced(0.25));
        timer = started();
    }
    std::unique_ptr<SecondTimer> started()
    {
        return std::make_unique<SecondTimer>(timers, clock, [this] { ticks.push_back(clock.now()); });
    }
    /// Which seconds since noon had a tick.
    std::vector<double> seconds() const
    {
        std::vector<double> seconds;
        for (const Instant tick : ticks)
            seconds.push_back(second(tick) - noon.secondsSince2001);
        return seconds;
    }
    /// How long each tick came after the second's beginning, in milliseconds.
    std::vector<double> offsets() const
    {
        std::vector<double> offsets;
        for (const Instant tick : ticks)
            offsets.push_back(1000 * (tick.secondsSince2001 - second(tick)));
        return offsets;
    }

    ManualClock clock;
    ManualTimers timers{ clock };
    std::vector<Instant> ticks;
    std::unique_ptr<SecondTimer> timer;
};

TEST_F(SecondTimerTest, ticksOnceForEachSecondJustAfterItsBeginning)
{
    timers.advance(3s);

    EXPECT_THAT(seconds(), ElementsAre(1, 2, 3));
    EXPECT_THAT(offsets(), Each(AllOf(Ge(2), Le(20))));
}

TEST_F(SecondTimerTest, neitherSkipsNorRepeatsASecondWhereverItBegins)
{
    for (int step = 0; step < 200; ++step) {
        timer.reset();
        ticks.clear();
        const Instant start = noon.advanced(0.9 + step * 0.001);
        clock.set(start);
        timer = started();

        timers.advance(30s);

        ASSERT_GE(ticks.size(), 29U) << step;
        for (std::size_t i = 0; i < ticks.size(); ++i)
            ASSERT_EQ(second(ticks[i]), second(start) + 1 + static_cast<double>(i)) << step;
        ASSERT_THAT(offsets(), Each(AllOf(Ge(2), Le(20)))) << step;
    }
}

TEST_F(SecondTimerTest, followsALateTickByThatOfTheNextFullSecond)
{
    clock.advance(2.5); // The timer knows nothing of that, as while the main thread is busy.

    timers.advance(755ms);
    timers.advance(1s);

    EXPECT_THAT(seconds(), ElementsAre(3, 4));
    EXPECT_THAT(offsets().back(), AllOf(Ge(2), Le(20)));
}

TEST_F(SecondTimerTest, waitsOnWhereTheClockRunsSlow)
{
    clock.advance(-0.010);

    timers.advance(755ms);
    EXPECT_THAT(ticks, IsEmpty());

    timers.advance(12ms);
    EXPECT_THAT(seconds(), ElementsAre(1));
    EXPECT_THAT(offsets(), Each(AllOf(Ge(2), Le(20))));
}

TEST_F(SecondTimerTest, waitsOnWhereItWokeInTheFirstMomentOfASecond)
{
    clock.advance(-0.004);

    timers.advance(760ms);

    EXPECT_THAT(seconds(), ElementsAre(1));
    EXPECT_THAT(offsets(), Each(AllOf(Ge(2), Le(20))));
}

TEST_F(SecondTimerTest, goesByTheNewTimeWhereTheClockIsSetBack)
{
    clock.advance(-3600.3);

    timers.advance(3s);

    EXPECT_THAT(seconds(), ElementsAre(-3599, -3598));
    EXPECT_THAT(offsets(), Each(AllOf(Ge(2), Le(20))));
}

TEST_F(SecondTimerTest, goesByTheNewTimeWhereTheClockIsSetForward)
{
    clock.advance(3600.3);

    timers.advance(3s);

    EXPECT_THAT(seconds(), ElementsAre(3601, 3602, 3603));
    ticks.erase(ticks.begin()); // It was on its way before the clock was set.
    EXPECT_THAT(offsets(), Each(AllOf(Ge(2), Le(20))));
}

TEST_F(SecondTimerTest, mayBeDestroyedByItsOwnCall)
{
    timer = std::make_unique<SecondTimer>(timers, clock, [this] {
        timer.reset();
        ticks.push_back(clock.now());
    });

    timers.advance(5s);

    EXPECT_THAT(seconds(), ElementsAre(1));
    EXPECT_THAT(timers.running(), IsEmpty());
}

/// A tick of the system's clock, and when it came by the one that nobody sets.
struct Tick {
    Instant moment;
    std::chrono::nanoseconds elapsed;
};

/// Whether a second between the two went by unseen, or was seen twice, though the machine was not too busy.
bool isBroken(const Tick &before, const Tick &after)
{
    constexpr auto heldOverASecond = 1900ms;
    const double steps = second(after.moment) - second(before.moment);
    return steps < 1 || (steps > 1 && after.elapsed - before.elapsed < heldOverASecond);
}

TEST(EventLoopSeconds, areNeitherSkippedNorRepeatedFromABeginningAtTheBoundaryOn)
{
    constexpr std::size_t count = 30;
    constexpr int patience = 90'000; // milliseconds
    const SystemClock clock;
    const SystemSteadyClock steadyClock;
    EventLoopTimers timers;
    std::vector<Tick> ticks;
    const auto note = [&] { ticks.push_back({ clock.now(), steadyClock.elapsed() }); };
    const Instant boundary = nextFullSecond(clock.now());
    while (clock.now() < boundary.advanced(-0.0005)) { // A timer would not come to the half millisecond.
    }

    note();
    const auto timer = timers.everySecond(note);
    ASSERT_TRUE(QTest::qWaitFor([&ticks] { return ticks.size() > count; }, patience));

    for (std::size_t i = 1; i < ticks.size(); ++i) {
        EXPECT_FALSE(isBroken(ticks[i - 1], ticks[i]))
            << i << ": " << ticks[i - 1].moment.secondsSince2001 << ", " << ticks[i].moment.secondsSince2001;
        EXPECT_TRUE(isTickDue({ second(ticks[i].moment) }, ticks[i].moment));
    }
}

} // namespace
} // namespace glimmet
