#include "platform/Clock.h"

#include <gtest/gtest.h>

#include <QDateTime>

namespace glimmet {
namespace {

TEST(SystemClock, tellsTheSystemsTime)
{
    const qint64 before = QDateTime::currentMSecsSinceEpoch();
    const double told = SystemClock().now().unixMilliseconds();
    const qint64 after = QDateTime::currentMSecsSinceEpoch();

    EXPECT_GE(told, static_cast<double>(before) - 1);
    EXPECT_LE(told, static_cast<double>(after) + 1);
}

TEST(Instant, countsFromTheYear2001)
{
    EXPECT_EQ(Instant::fromUnixSeconds(978'307'200).secondsSince2001, 0);
    EXPECT_EQ((Instant{ 0 }).unixMilliseconds(), 978'307'200'000.0);
    EXPECT_EQ((Instant{ -978'307'200 }).unixMilliseconds(), 0);
}

TEST(Instant, isEarlierOrLater)
{
    EXPECT_LT((Instant{ 1 }), (Instant{ 1 }).advanced(0.25));
    EXPECT_EQ((Instant{ 1 }), (Instant{ 0.5 }).advanced(0.5));
}

} // namespace
} // namespace glimmet
