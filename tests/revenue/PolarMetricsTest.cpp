#include "revenue/PolarService.h"

#include "tests/revenue/JsonText.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using Sums = QList<qint64>; // revenue, orders, the best period

Sums sums(const QByteArray &body)
{
    CapturedLog log;
    const RevenueTotals totals = PolarService::parse(body, log.log());
    return { totals.revenue, totals.orders, totals.max };
}

QByteArray logged(const QByteArray &body)
{
    CapturedLog log;
    PolarService::parse(body, log.log());
    return log.written();
}

Sums sumsOfPeriod(const QByteArray &members)
{
    return sums("{\"periods\":[{" + members + "}]}");
}

qint64 revenue(const QByteArray &value)
{
    return sumsOfPeriod("\"revenue\":" + value)[0];
}

TEST(PolarMetrics, areSummedOverThePeriods)
{
    const QByteArray body = R"({"periods":[{"revenue":500,"succeeded_checkouts":1},
        {"revenue":0,"succeeded_checkouts":0},{"revenue":1200,"succeeded_checkouts":3}]})";

    EXPECT_EQ(sums(body), (Sums{ 1700, 4, 1200 }));
    EXPECT_EQ(logged(body), "[glimmet] Polar: revenue=1700, orders=4, maxPeriod=1200\n");
}

TEST(PolarMetrics, areZeroOverNoPeriods)
{
    EXPECT_EQ(sums(R"({"periods":[]})"), (Sums{ 0, 0, 0 }));
    EXPECT_EQ(logged(R"({"periods":[]})"), "[glimmet] Polar: revenue=0, orders=0, maxPeriod=0\n");
}

TEST(PolarMetrics, areZeroWhereTheBodyHoldsNone)
{
    for (const char *body : { "", "{", "no json", "null", "[]", "{}", "[{\"periods\":[{\"revenue\":1}]}]",
             "{\"periods\":[{\"revenue\":1},null]}", "{\"periods\":{\"revenue\":1}}",
             "{\"data\":[{\"revenue\":1}]}", "{\"periods\":[{\"revenue\":\"\xFF\"}]}" }) {
        EXPECT_EQ(sums(body), (Sums{ 0, 0, 0 })) << body;
        EXPECT_EQ(logged(body), "") << body;
    }
}

TEST(PolarMetrics, countTheOrdersWhereThereAreNoCheckouts)
{
    EXPECT_EQ(sumsOfPeriod("\"orders\":2"), (Sums{ 0, 2, 0 }));
    EXPECT_EQ(sumsOfPeriod("\"orders\":2,\"succeeded_checkouts\":5"), (Sums{ 0, 5, 0 }));
    EXPECT_EQ(sumsOfPeriod("\"orders\":2.9"), (Sums{ 0, 2, 0 }));
}

TEST(PolarMetrics, countCheckoutsThatAreNoNumberAsNone)
{
    for (const QByteArray &value : jsonValuesBut({ "0", "12", "-12", "12.0", "12.9", "1e2" })) {
        EXPECT_EQ(sumsOfPeriod("\"orders\":2,\"succeeded_checkouts\":" + value), (Sums{ 0, 0, 0 }))
            << value.toStdString();
        EXPECT_EQ(sumsOfPeriod("\"orders\":" + value), (Sums{ 0, 0, 0 })) << value.toStdString();
    }
}

TEST(PolarMetrics, takeRevenueAsCents)
{
    EXPECT_EQ(revenue("1500"), 1500);
    EXPECT_EQ(revenue("12.9"), 12);
    EXPECT_EQ(revenue("-12.9"), -12);
    EXPECT_EQ(revenue("9223372036854775807"), 9223372036854775807);
    for (const char *value : { "null", "true", "false", "[]", "[1]", "{}", "{\"amount\":5}" })
        EXPECT_EQ(revenue(value), 0) << value;
}

TEST(PolarMetrics, takeRevenueInAText)
{
    EXPECT_EQ(revenue("\"1500\""), 1500);
    EXPECT_EQ(revenue("\"+1500\""), 1500);
    EXPECT_EQ(revenue("\"-1500\""), -1500);
    EXPECT_EQ(revenue("\"0015\""), 15);
    EXPECT_EQ(revenue("\"9223372036854775807\""), 9223372036854775807);
}

TEST(PolarMetrics, takeATextThatIsNoWholeNumberForNothing)
{
    for (const char *value : { "\"\"", "\" 1500\"", "\"1500 \"", "\"1500\\n\"", "\"12.9\"", "\"1e3\"",
             "\"0x10\"", "\"+\"", "\"--1\"", "\"1,500\"", "\"1_500\"", "\"١٥\"", "\"１５\"", "\"15\\u0000\"",
             "\"9223372036854775808\"", "\"123456789012345678901234567890\"" })
        EXPECT_EQ(revenue(value), 0) << value;
}

TEST(PolarMetrics, haveNoBestPeriodBelowZero)
{
    EXPECT_EQ(sums(R"({"periods":[{"revenue":-500},{"revenue":-1}]})"), (Sums{ -501, 0, 0 }));
}

TEST(PolarMetricsDeathTest, endTheProcessWhereANumberDoesNotFit)
{
    for (const char *members : { "\"revenue\":1e300", "\"revenue\":9223372036854775808",
             "\"succeeded_checkouts\":-1e19", "\"orders\":1e19" })
        EXPECT_DEATH(sumsOfPeriod(members), "^\\[glimmet\\] fatal: a number is too large for an integer\n$")
            << members;
}

TEST(PolarMetricsDeathTest, endTheProcessWhereASumDoesNotFit)
{
    EXPECT_DEATH(sums(R"({"periods":[{"revenue":9223372036854775807},{"revenue":1}]})"),
        "^\\[glimmet\\] fatal: integer overflow\n$");
    EXPECT_DEATH(
        sums(R"({"periods":[{"orders":9223372036854775807},{"orders":1}]})"), "fatal: integer overflow");
}

} // namespace
} // namespace glimmet
