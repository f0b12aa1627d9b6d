#include "platform/RepeatingTimer.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTest>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

constexpr int patience = 5000; // milliseconds

TEST(EventLoopTimers, fireAgainAndAgainTheFirstTimeAfterOneInterval)
{
    int fired = 0;
    QElapsedTimer sinceStart;
    sinceStart.start();
    const auto timer = EventLoopTimers().repeating(20ms, [&fired] { ++fired; });
    EXPECT_EQ(fired, 0);

    ASSERT_TRUE(QTest::qWaitFor([&fired] { return fired >= 3; }, patience));
    EXPECT_GE(sinceStart.elapsed(), 59);
}

TEST(EventLoopTimers, fireNoMoreOnceDestroyed)
{
    int fired = 0;
    int others = 0;
    auto timer = EventLoopTimers().repeating(1ms, [&fired] { ++fired; });
    const auto other = EventLoopTimers().repeating(1ms, [&others] { ++others; });
    ASSERT_TRUE(QTest::qWaitFor([&fired] { return fired >= 1; }, patience));

    timer.reset();
    const int before = fired;
    others = 0;

    ASSERT_TRUE(QTest::qWaitFor([&others] { return others >= 20; }, patience));
    EXPECT_EQ(fired, before);
}

TEST(EventLoopTimers, mayBeDestroyedByTheirOwnCall)
{
    int fired = 0;
    int others = 0;
    std::unique_ptr<RepeatingTimer> timer;
    timer = EventLoopTimers().repeating(1ms, [&timer, &fired, text = std::string(100, 'x')] {
        timer.reset();
        fired += static_cast<int>(text.size()) / 100; // What the call brought along still lives.
    });
    const auto other = EventLoopTimers().repeating(1ms, [&others] { ++others; });

    ASSERT_TRUE(QTest::qWaitFor([&others] { return others >= 20; }, patience));
    EXPECT_EQ(fired, 1);
}

} // namespace
} // namespace glimmet
