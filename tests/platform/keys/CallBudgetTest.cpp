#include "platform/keys/CallBudget.h"
#include "tests/support/ManualClock.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

class CallBudgetTest : public testing::Test {
protected:
    /// Makes a call that takes so long.
    void spend(std::chrono::nanoseconds time)
    {
        const CallBudget::Call call(budget);
        clock.pass(time);
    }
    /// What a call has that is made now.
    std::chrono::milliseconds left() { return CallBudget::Call(budget).remaining(); }

    ManualClock clock;
    CallBudget budget{ clock, { 10s, 1s } };
};

TEST_F(CallBudgetTest, isSharedByTheCallsOfTheStartUp)
{
    spend(4s);
    spend(5s);

    EXPECT_EQ(left(), 1s);
}

TEST_F(CallBudgetTest, isNotUsedUpBetweenCalls)
{
    clock.pass(1h);

    EXPECT_EQ(left(), 10s);
}

TEST_F(CallBudgetTest, hasNothingLeftOnceTheStartUpTookTooLong)
{
    spend(11s);

    EXPECT_EQ(left(), 0ms);
    EXPECT_TRUE(CallBudget::Call(budget).hasExpired());
}

TEST_F(CallBudgetTest, isNewForEachLaterCall)
{
    spend(11s);
    budget.endStartUp();

    spend(900ms);

    EXPECT_EQ(left(), 1s);
}

TEST_F(CallBudgetTest, runsOutWhileTheCallLasts)
{
    const CallBudget::Call call(budget);

    clock.pass(8s);
    EXPECT_EQ(call.remaining(), 2s);

    clock.pass(3s);
    EXPECT_EQ(call.remaining(), 0ms);
}

TEST_F(CallBudgetTest, leavesAMillisecondToWhatIsLeftOfOne)
{
    const CallBudget::Call call(budget);

    clock.pass(10s - 1ns);

    EXPECT_EQ(call.remaining(), 1ms);
}

TEST_F(CallBudgetTest, hasExpiredWhereTheWaitOfABusEndsATenthEarly)
{
    const CallBudget::Call call(budget);

    clock.pass(9s - 1ns);
    EXPECT_FALSE(call.hasExpired());

    clock.pass(1ns);
    EXPECT_TRUE(call.hasExpired());
}

} // namespace
} // namespace glimmet
