#include "revenue/RevenueAccumulator.h"

#include "tests/revenue/JsonText.h"

#include <gtest/gtest.h>

#include <limits>

namespace glimmet {
namespace {

constexpr qint64 largest = std::numeric_limits<qint64>::max();
constexpr qint64 lowest = std::numeric_limits<qint64>::min();

PagedOrder order(const QByteArray &amount, std::optional<Instant> created = std::nullopt)
{
    return { created, inJson(amount, [](const JsonValue &value) { return Amount(value); }) };
}

RevenueAccumulator folded(const std::vector<PagedOrder> &orders, const RevenueAccumulator &accumulator,
    const std::function<bool(Instant)> &isInPeriod)
{
    return fold(orders, accumulator, isInPeriod);
}

bool always(Instant)
{
    return true;
}

bool never(Instant)
{
    return false;
}

TEST(Fold, addsCountsAndKeepsTheLargest)
{
    const RevenueAccumulator totals = folded({ order("500"), order("1500"), order("700.9") }, {}, always);

    EXPECT_EQ(totals, (RevenueAccumulator{ 2700, 3, 1500 }));
}

TEST(Fold, goesOnFromTheTotalsOfThePagesBefore)
{
    const RevenueAccumulator totals = folded({ order("1") }, { 1000, 7, 600 }, always);

    EXPECT_EQ(totals, (RevenueAccumulator{ 1001, 8, 600 }));
}

TEST(Fold, leavesTheTotalsAloneOverAnEmptyPage)
{
    EXPECT_EQ(folded({}, { 1000, 7, 600 }, never), (RevenueAccumulator{ 1000, 7, 600 }));
}

TEST(Fold, passesOverOrdersOutsideThePeriod)
{
    const auto isLate = [](Instant created) { return created.secondsSince2001 >= 100; };

    const RevenueAccumulator totals =
        folded({ order("1", Instant{ 99.999 }), order("2", Instant{ 100 }), order("4", Instant{ 101 }) }, {},
            isLate);

    EXPECT_EQ(totals, (RevenueAccumulator{ 6, 2, 4 }));
}

TEST(Fold, countsOrdersWithoutATimeInEveryPeriod)
{
    EXPECT_EQ(folded({ order("5") }, {}, never), (RevenueAccumulator{ 5, 1, 5 }));
}

TEST(Fold, neverHasALargestBelowZero)
{
    EXPECT_EQ(folded({ order("-500"), order("-1") }, {}, always), (RevenueAccumulator{ -501, 2, 0 }));
}

TEST(Fold, countsAnOrderOverNothing)
{
    EXPECT_EQ(folded({ order("0"), order("null") }, {}, always), (RevenueAccumulator{ 0, 2, 0 }));
}

TEST(Fold, reachesTheLimitsOf64Bits)
{
    EXPECT_EQ(folded({ order("9223372036854775806"), order("1") }, {}, always),
        (RevenueAccumulator{ largest, 2, largest - 1 }));
    EXPECT_EQ(folded({ order("-9223372036854775807"), order("-1") }, {}, always),
        (RevenueAccumulator{ lowest, 2, 0 }));
}

TEST(Fold, bearsAnAmountThatDoesNotFitOutsideThePeriod)
{
    EXPECT_EQ(folded({ order("1e300", Instant{ 0 }) }, {}, never), RevenueAccumulator());
}

TEST(FoldDeathTest, endsTheProcessWhereASumDoesNotFit)
{
    EXPECT_DEATH(folded({ order("9223372036854775807"), order("1") }, {}, always),
        "^\\[glimmet\\] fatal: integer overflow\n$");
    EXPECT_DEATH(folded({ order("-9223372036854775808"), order("-1") }, {}, always), "integer overflow");
    EXPECT_DEATH(folded({ order("0") }, { 0, largest, 0 }, always), "integer overflow");
}

TEST(FoldDeathTest, endsTheProcessWhereACountedAmountDoesNotFit)
{
    EXPECT_DEATH(folded({ order("1e300", Instant{ 0 }) }, {}, always), "too large for an integer");
    EXPECT_DEATH(folded({ order("1e300") }, {}, never), "too large for an integer");
}

} // namespace
} // namespace glimmet
