#include "platform/keys/CallBudget.h"

#include <QThread>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

void spend(CallBudget &budget, std::chrono::milliseconds time)
{
    const CallBudget::Call call(budget);
    QThread::msleep(static_cast<unsigned long>(time.count()));
}

TEST(CallBudget, isSharedByTheCallsOfTheStartUp)
{
    CallBudget budget(10s, 1s);

    spend(budget, 60ms);
    spend(budget, 60ms);

    EXPECT_LE(CallBudget::Call(budget).remaining(), 10s - 120ms);
    EXPECT_GT(CallBudget::Call(budget).remaining(), 1s);
}

TEST(CallBudget, isNotUsedUpBetweenCalls)
{
    CallBudget budget(10s, 1s);

    QThread::msleep(60);

    EXPECT_GT(CallBudget::Call(budget).remaining(), 10s - 60ms);
}

TEST(CallBudget, hasNothingLeftOnceTheStartUpTookTooLong)
{
    CallBudget budget(20ms, 1s);

    spend(budget, 40ms);

    EXPECT_EQ(CallBudget::Call(budget).remaining(), 0ms);
    EXPECT_TRUE(CallBudget::Call(budget).hasExpired());
}

TEST(CallBudget, isNewForEachLaterCall)
{
    CallBudget budget(20ms, 1s);
    budget.endStartUp();

    spend(budget, 60ms);

    EXPECT_GT(CallBudget::Call(budget).remaining(), 1s - 60ms);
    EXPECT_LE(CallBudget::Call(budget).remaining(), 1s);
}

} // namespace
} // namespace glimmet
