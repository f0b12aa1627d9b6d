#include "platform/CheckedInteger.h"

#include <gtest/gtest.h>

#include <limits>

namespace glimmet {
namespace {

constexpr qint64 largest = std::numeric_limits<qint64>::max();
constexpr qint64 lowest = std::numeric_limits<qint64>::min();

TEST(CheckedSum, addsUpToTheLimits)
{
    EXPECT_EQ(checkedSum(largest - 1, 1), largest);
    EXPECT_EQ(checkedSum(lowest + 1, -1), lowest);
}

TEST(CheckedSumDeathTest, endsTheProcessBeyondThem)
{
    EXPECT_DEATH(checkedSum(largest, 1), "^\\[glimmet\\] fatal: integer overflow\n$");
    EXPECT_DEATH(checkedSum(lowest, -1), "^\\[glimmet\\] fatal: integer overflow\n$");
}

TEST(CheckedTruncation, cutsTowardZero)
{
    EXPECT_EQ(checkedTruncation(2.999), 2);
    EXPECT_EQ(checkedTruncation(-2.999), -2);
    EXPECT_EQ(checkedTruncation(-9223372036854775808.0), lowest);
}

TEST(CheckedTruncationDeathTest, endsTheProcessOverAnythingLarger)
{
    EXPECT_DEATH(checkedTruncation(9223372036854775808.0), "\\[glimmet\\] fatal: ");
    EXPECT_DEATH(checkedTruncation(-9223372036854777856.0), "\\[glimmet\\] fatal: ");
    EXPECT_DEATH(checkedTruncation(std::numeric_limits<double>::quiet_NaN()), "\\[glimmet\\] fatal: ");
}

TEST(Wrapped, isInRangeForEveryIndex)
{
    EXPECT_EQ(wrapped(0, 3), 0);
    EXPECT_EQ(wrapped(7, 3), 1);
    EXPECT_EQ(wrapped(-1, 3), 2);
    EXPECT_EQ(wrapped(-3, 3), 0);
    EXPECT_EQ(wrapped(lowest, 1), 0);
    EXPECT_EQ(wrapped(largest, 10), 7);
}

} // namespace
} // namespace glimmet
