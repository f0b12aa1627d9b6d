#include "revenue/RevenueFormat.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <limits>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

const QString usd = u"USD"_s;
constexpr qint64 largest = std::numeric_limits<qint64>::max();
constexpr qint64 lowest = std::numeric_limits<qint64>::min();

QString revenue(qint64 cents, const QString &currency = usd)
{
    return format(RevenueMetric::Revenue, { cents, 1, 0 }, currency);
}

QString average(qint64 cents, qint64 orders)
{
    return format(RevenueMetric::Avg, { cents, orders, 0 }, usd);
}

TEST(RevenueFormat, showsTheSumInFull)
{
    EXPECT_EQ(revenue(123456), u"💰 $1,234.56"_s);
    EXPECT_EQ(revenue(1234567890), u"💰 $12,345,678.90"_s);
    EXPECT_EQ(revenue(0), u"💰 $0.00"_s);
    EXPECT_EQ(revenue(-5), u"💰 -$0.05"_s);
}

TEST(RevenueFormat, showsTheSumAlsoWithoutOrders)
{
    EXPECT_EQ(format(RevenueMetric::Revenue, { 500, 0, 0 }, usd), u"💰 $5.00"_s);
    EXPECT_EQ(format(RevenueMetric::Revenue, { 500, -1, 0 }, usd), u"💰 $5.00"_s);
}

TEST(RevenueFormat, beginsWithOneEmojiAndOneBlank)
{
    EXPECT_TRUE(revenue(1).toUtf8().startsWith("\xF0\x9F\x92\xB0 $"));
    EXPECT_TRUE(format(RevenueMetric::Orders, { 0, 1, 0 }, usd).toUtf8().startsWith("\xF0\x9F\x9B\x92 1"));
    EXPECT_TRUE(average(1, 1).toUtf8().startsWith("\xF0\x9F\x93\x90 avg $"));
    EXPECT_TRUE(format(RevenueMetric::Top, { 0, 1, 5 }, usd).toUtf8().startsWith("\xF0\x9F\x91\x91 top $"));
}

TEST(RevenueFormat, countsOrdersWithoutGroupingOrSingular)
{
    const auto orders = [](qint64 count) { return format(RevenueMetric::Orders, { 0, count, 0 }, usd); };

    EXPECT_EQ(orders(0), u"🛒 0 orders"_s);
    EXPECT_EQ(orders(1), u"🛒 1 orders"_s);
    EXPECT_EQ(orders(1234567), u"🛒 1234567 orders"_s);
    EXPECT_EQ(orders(-3), u"🛒 -3 orders"_s);
    EXPECT_EQ(orders(largest), u"🛒 9223372036854775807 orders"_s);
}

TEST(RevenueFormat, cutsTheAverageToWholeCents)
{
    EXPECT_EQ(average(1000, 3), u"📐 avg $3.33"_s);
    EXPECT_EQ(average(1001, 2), u"📐 avg $5.00"_s);
    EXPECT_EQ(average(5, 2), u"📐 avg $0.02"_s);
    EXPECT_EQ(average(-5, 2), u"📐 avg -$0.02"_s);
    EXPECT_EQ(average(1, 2), u"📐 avg $0.00"_s);
}

TEST(RevenueFormat, saysNoOrdersInsteadOfAnAverageOrALargest)
{
    for (const qint64 orders : { qint64{ 0 }, qint64{ -1 }, lowest }) {
        EXPECT_EQ(format(RevenueMetric::Avg, { lowest, orders, 5 }, usd), u"📐 no orders"_s);
        EXPECT_EQ(format(RevenueMetric::Top, { 500, orders, 500 }, usd), u"👑 no orders"_s);
    }
}

TEST(RevenueFormat, showsTheLargestAmount)
{
    EXPECT_EQ(format(RevenueMetric::Top, { 1, 1, 99999 }, usd), u"👑 top $999.99"_s);
}

TEST(RevenueFormat, takesTheCurrencyAsGiven)
{
    EXPECT_EQ(revenue(123456, u"EUR"_s), u"💰 €1,234.56"_s);
    EXPECT_EQ(revenue(123456, u"JPY"_s), u"💰 ¥1,234.56"_s);
    EXPECT_EQ(revenue(123456, u"CHF"_s), u"💰 CHF\u00A01,234.56"_s);
}

TEST(RevenueFormat, showsZeroDollarsForARejectedCurrencyWhateverTheAmount)
{
    for (const QString &currency : { u""_s, u"U"_s, u"US"_s, u"u$d"_s, u"€€€"_s }) {
        EXPECT_EQ(revenue(123456, currency), u"💰 $0.00"_s) << currency.toStdString();
        EXPECT_EQ(format(RevenueMetric::Top, { 1, 1, 500 }, currency), u"👑 top $0.00"_s)
            << currency.toStdString();
    }
}

TEST(RevenueFormat, bearsTheLargestTotals)
{
    EXPECT_EQ(revenue(largest), u"💰 $92,233,720,368,547,760.00"_s);
    EXPECT_EQ(revenue(lowest), u"💰 -$92,233,720,368,547,760.00"_s);
    EXPECT_EQ(average(lowest, 1), revenue(lowest).replace(u"💰"_s, u"📐 avg"_s));
}

} // namespace
} // namespace glimmet
