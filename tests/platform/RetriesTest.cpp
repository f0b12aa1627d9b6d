#include "platform/Retries.h"

#include "tests/support/ManualTimers.h"

#include <gmock/gmock.h>

#include <memory>
#include <vector>

namespace glimmet {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class RetriesTest : public testing::Test {
protected:
    ManualClock clock;
    ManualTimers timers{ clock };
    std::vector<std::chrono::nanoseconds> tries;
    Retries retries{ timers, [this] { tries.push_back(clock.elapsed()); } };
};

TEST_F(RetriesTest, comeFiveFifteenAndFortyFiveSecondsAfterTheStart)
{
    retries.start();

    timers.advance(1h);

    EXPECT_THAT(tries, ElementsAre(5s, 15s, 45s));
    EXPECT_THAT(timers.running(), IsEmpty());
}

TEST_F(RetriesTest, areAheadUntilTheLastOneComes)
{
    EXPECT_FALSE(retries.areAhead());
    retries.start();
    EXPECT_TRUE(retries.areAhead());

    timers.advance(45s - 1ms);
    EXPECT_TRUE(retries.areAhead());

    timers.advance(1ms);
    EXPECT_FALSE(retries.areAhead());
}

TEST_F(RetriesTest, beginAnewByAnotherStart)
{
    retries.start();
    timers.advance(20s);

    retries.start();
    timers.advance(1h);

    EXPECT_THAT(tries, ElementsAre(5s, 15s, 25s, 35s, 65s));
}

TEST_F(RetriesTest, comeNoMoreOnceStopped)
{
    retries.start();
    timers.advance(5s);

    retries.stop();
    timers.advance(1h);

    EXPECT_THAT(tries, ElementsAre(5s));
    EXPECT_FALSE(retries.areAhead());
}

TEST_F(RetriesTest, mayBeDestroyedByTheirOwnCall)
{
    int count = 0;
    std::unique_ptr<Retries> own;
    own = std::make_unique<Retries>(timers, [&own, &count] {
        own.reset();
        ++count;
    });
    own->start();

    timers.advance(1h);

    EXPECT_EQ(count, 1);
}

TEST(LatestRequestTest, isTheOnlyOneThatCounts)
{
    LatestRequest latest;
    EXPECT_FALSE(latest.lackedNetwork());

    const qint64 first = latest.begin();
    latest.end(first, true);
    EXPECT_TRUE(latest.lackedNetwork());

    const qint64 second = latest.begin();
    EXPECT_FALSE(latest.lackedNetwork());
    latest.end(first, true);
    EXPECT_FALSE(latest.lackedNetwork());
    latest.end(second, false);
    EXPECT_FALSE(latest.lackedNetwork());
}

} // namespace
} // namespace glimmet
