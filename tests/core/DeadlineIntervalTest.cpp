#include "core/Deadline.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

struct Example {
    double seconds;
    QString text;
};

class DeadlineInterval : public testing::TestWithParam<Example> {};

TEST_P(DeadlineInterval, readsInItsTwoLargestUnits)
{
    EXPECT_EQ(Deadline::formatInterval(GetParam().seconds), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Table, DeadlineInterval,
    testing::Values(Example{ 0.001, u"0m"_s }, Example{ 59, u"0m"_s }, Example{ 59.999, u"0m"_s },
        Example{ 60, u"1m"_s }, Example{ 2700, u"45m"_s }, Example{ 3599.999, u"59m"_s },
        Example{ 3600, u"1h 0m"_s }, Example{ 3700, u"1h 1m"_s }, Example{ 11520, u"3h 12m"_s },
        Example{ 86399.999, u"23h 59m"_s }, Example{ 86400, u"1d 0h"_s }, Example{ 90061, u"1d 1h"_s },
        Example{ 190800, u"2d 5h"_s }, Example{ 86400.0 * 365, u"365d 0h"_s },
        Example{ 86400.0 * 123456, u"123456d 0h"_s },
        Example{ 9223372036854774784.0, u"106751991167300d 15h"_s }));

TEST(DeadlineIntervalDeathTest, endsTheProcessOverANumberThatNoIntegerHolds)
{
    EXPECT_DEATH(Deadline::formatInterval(9223372036854775808.0), "\\[glimmet\\] fatal: ");
    EXPECT_DEATH(Deadline::formatInterval(std::numeric_limits<double>::max()), "\\[glimmet\\] fatal: ");
    EXPECT_DEATH(Deadline::formatInterval(HUGE_VAL), "\\[glimmet\\] fatal: ");
    EXPECT_DEATH(Deadline::formatInterval(-HUGE_VAL), "\\[glimmet\\] fatal: ");
    EXPECT_DEATH(Deadline::formatInterval(std::nan("")), "\\[glimmet\\] fatal: ");
}

} // namespace
} // namespace glimmet
