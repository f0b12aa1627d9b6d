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
    std::chrono::milliseconds left() { return CallBudget::Call(budget).patience(); }

    ManualClock clock;
    CallBudget budget{ clock, { 10s, 1s, 1h } };
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
    EXPECT_EQ(call.patience(), 2s);

    clock.pass(3s);
    EXPECT_EQ(call.patience(), 0ms);
}

TEST_F(CallBudgetTest, leavesAMillisecondToWhatIsLeftOfOne)
{
    const CallBudget::Call call(budget);

    clock.pass(10s - 1ns);

    EXPECT_EQ(call.patience(), 1ms);
}

TEST_F(CallBudgetTest, leavesHalfToWhatFollowsAQuestionThatShares)
{
    const CallBudget::Call call(budget);

    EXPECT_EQ(call.share(), 5s);
    clock.pass(9s);
    EXPECT_EQ(call.share(), 500ms);
    clock.pass(2s);
    EXPECT_EQ(call.share(), 0ms);
}

TEST_F(CallBudgetTest, givesNoQuestionMoreThanItsLimit)
{
    CallBudget limited{ clock, { 10s, 1500ms, 300ms } };
    {
        const CallBudget::Call call(limited);
        EXPECT_EQ(call.patience(), 300ms);
        EXPECT_EQ(call.share(), 300ms);
        clock.pass(9900ms);
        EXPECT_EQ(call.patience(), 100ms);
    }
    limited.endStartUp();

    const CallBudget::Call call(limited);
    EXPECT_EQ(call.patience(), 300ms);
    clock.pass(1400ms);
    EXPECT_EQ(call.patience(), 100ms);
    EXPECT_EQ(call.share(), 50ms);
}

TEST_F(CallBudgetTest, remembersAQuestionThatGotNoAnswer)
{
    CallBudget::Call call(budget);
    EXPECT_FALSE(call.wasUnanswered());

    call.noteSilence();

    EXPECT_TRUE(call.wasUnanswered());
    EXPECT_FALSE(CallBudget::Call(budget).wasUnanswered());
}

} // namespace
} // namespace glimmet
