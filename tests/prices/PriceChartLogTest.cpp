#include "prices/PriceChart.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <limits>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

QString linePrice(double price)
{
    return PriceChart::logLine({ u"X"_s, price, 0, {} }).section(u' ', 1, 1);
}

QString lineChange(double change)
{
    return PriceChart::logLine({ u"X"_s, 1, change, {} }).section(u' ', 2, 2);
}

TEST(PriceChartLog, isOneLineWithTwoBlanksBeforeTheCount)
{
    const QList<double> day(24, 97000.0);

    EXPECT_EQ(PriceChart::logLine({ u"BTC"_s, 97000, 1.34, day }), u"BTC: $97000.0 +1.3%  24pts"_s);
    EXPECT_EQ(PriceChart::logLine({ u"^gspc"_s, 0.5, -12.25, {} }), u"^gspc: $0.5 -12.2%  0pts"_s);
}

TEST(PriceChartLog, hasTheShortestDecimalsOfThePrice)
{
    EXPECT_EQ(linePrice(97012.34765625), u"$97012.34765625"_s);
    EXPECT_EQ(linePrice(0.1), u"$0.1"_s);
    EXPECT_EQ(linePrice(0.1 + 0.2), u"$0.30000000000000004"_s);
    EXPECT_EQ(linePrice(105), u"$105.0"_s);
    EXPECT_EQ(linePrice(100), u"$100.0"_s);
    EXPECT_EQ(linePrice(0), u"$0.0"_s);
    EXPECT_EQ(linePrice(-37.63), u"$-37.63"_s);
}

TEST(PriceChartLog, hasNoExponentInThePrice)
{
    EXPECT_EQ(linePrice(1e-7), u"$0.0000001"_s);
    EXPECT_EQ(linePrice(1.5e-12), u"$0.0000000000015"_s);
    EXPECT_EQ(linePrice(100'000), u"$100000.0"_s);
    EXPECT_EQ(linePrice(1e15), u"$1000000000000000.0"_s);
    EXPECT_EQ(linePrice(1e22), u"$10000000000000000000000.0"_s);
    EXPECT_EQ(linePrice(1.5e300), "$15"_L1 + QString(299, u'0') + ".0"_L1);
}

TEST(PriceChartLog, hasAPriceThatReadsBackAsTheSame)
{
    for (const double price : { 0.1 + 0.2, 1.0 / 3, 2.0 / 3 * 1e20, 1e23, 4.35e-6, 123456789.123456789,
             std::numeric_limits<double>::max(), std::numeric_limits<double>::min(),
             std::numeric_limits<double>::denorm_min() }) {
        const QString text = linePrice(price).sliced(1);

        EXPECT_EQ(text.toDouble(), price) << text.toStdString();
        EXPECT_FALSE(text.contains(u'e')) << text.toStdString();
    }
}

TEST(PriceChartLog, hasTheChangeWithItsSignAndOneDecimal)
{
    EXPECT_EQ(lineChange(0), u"+0.0%"_s);
    EXPECT_EQ(lineChange(25), u"+25.0%"_s);
    EXPECT_EQ(lineChange(-4.06), u"-4.1%"_s);
    EXPECT_EQ(lineChange(-0.04), u"-0.0%"_s);
    EXPECT_EQ(lineChange(0.04), u"+0.0%"_s);
    EXPECT_EQ(lineChange(0.25), u"+0.2%"_s);
    EXPECT_EQ(lineChange(-0.75), u"-0.8%"_s);
    EXPECT_EQ(lineChange(123456.78), u"+123456.8%"_s);
    EXPECT_EQ(lineChange(std::numeric_limits<double>::infinity()), u"+inf%"_s);
    EXPECT_EQ(lineChange(std::numeric_limits<double>::lowest()).size(), 313);
}

} // namespace
} // namespace glimmet
