#include "revenue/RevenueCatService.h"

#include "tests/revenue/JsonText.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

using Metrics = RevenueCatService::Metrics;

std::optional<Metrics> parsed(const QByteArray &body)
{
    return RevenueCatService::parse(body);
}

qint64 value(const QByteArray &json)
{
    return parsed("{\"metrics\":[{\"id\":\"a\",\"value\":" + json + "}]}")->value(u"a"_s, -1);
}

TEST(RevenueCatMetrics, areTheValuesByTheirIds)
{
    const auto metrics = parsed(R"({"object":"overview_metrics","currency":"USD","metrics":[
        {"object":"overview_metric","id":"mrr","name":"MRR","unit":"$","period":"P28D","value":9900},
        {"id":"revenue","value":123456},{"id":"num_tx_last_28_days","value":3.0}]})");

    EXPECT_EQ(
        metrics, (Metrics{ { u"mrr"_s, 9900 }, { u"revenue"_s, 123456 }, { u"num_tx_last_28_days"_s, 3 } }));
}

TEST(RevenueCatMetrics, areNoneInAnyOtherBody)
{
    for (const char *body : { "", "{", "no json", "null", "[]", "{}", "[{\"metrics\":[]}]",
             "{\"metrics\":null}", "{\"metrics\":{\"id\":\"mrr\"}}", "{\"metrics\":[{},null]}",
             "{\"metrics\":\"mrr\"}", "{\"metrics\":[]} x", "{\"metrics\":[{\"id\":\"\xFF\"}]}" })
        EXPECT_EQ(parsed(body), std::nullopt) << body;
    EXPECT_EQ(parsed(R"({"metrics":[]})"), Metrics());
}

TEST(RevenueCatMetrics, haveATextAsTheirId)
{
    for (const QByteArray &id : jsonValuesBut({ "\"\"", "\"text\"", "\"12\"" }))
        EXPECT_EQ(parsed("{\"metrics\":[{\"value\":1,\"id\":" + id + "}]}"), Metrics()) << id.toStdString();
    EXPECT_EQ(parsed(R"({"metrics":[{"value":1},{"id":"","value":2}]})"), (Metrics{ { u""_s, 2 } }));
}

TEST(RevenueCatMetrics, haveAWholeValue)
{
    EXPECT_EQ(value("12"), 12);
    EXPECT_EQ(value("12.9"), 12);
    EXPECT_EQ(value("-12.9"), -12);
    for (const QByteArray &json : jsonValuesBut({ "0", "12", "-12", "12.0", "12.9", "1e2" }))
        EXPECT_EQ(value(json), 0) << json.toStdString();
    EXPECT_EQ(parsed(R"({"metrics":[{"id":"a"}]})"), (Metrics{ { u"a"_s, 0 } }));
}

TEST(RevenueCatMetrics, haveTheLastValueOfAnId)
{
    EXPECT_EQ(parsed(R"({"metrics":[{"id":"a","value":1},{"id":"b","value":5},{"id":"a","value":2}]})"),
        (Metrics{ { u"a"_s, 2 }, { u"b"_s, 5 } }));
    EXPECT_EQ(
        parsed(R"({"metrics":[{"id":"a","value":1},{"id":"a","value":null}]})"), (Metrics{ { u"a"_s, 0 } }));
}

TEST(RevenueCatMetricsDeathTest, endTheProcessWhereAValueDoesNotFit)
{
    for (const char *json : { "1e19", "-1e300", "9223372036854775808" })
        EXPECT_DEATH(value(json), "^\\[glimmet\\] fatal: a number is too large for an integer\n$") << json;
}

TEST(RevenueCatMetrics, arePrintedSortedById)
{
    EXPECT_EQ(RevenueCatService::printed({ { u"revenue"_s, 123456 }, { u"mrr"_s, 9900 } }),
        u"[\"mrr\": 9900, \"revenue\": 123456]"_s);
    EXPECT_EQ(RevenueCatService::printed({ { u"a"_s, -1 } }), u"[\"a\": -1]"_s);
    EXPECT_EQ(RevenueCatService::printed({}), u"[:]"_s);
}

TEST(RevenueCatMetrics, arePrintedOnOneLine)
{
    EXPECT_EQ(RevenueCatService::printed({ { u"a\n\"b\"\r\t\\"_s, 1 } }), uR"(["a\n\"b\"\r\t\\": 1])"_s);
}

TEST(RevenueCatFigure, isPickedByTheMetric)
{
    const Metrics metrics{ { u"revenue"_s, 123456 }, { u"num_tx_last_28_days"_s, 3 }, { u"mrr"_s, 9900 } };

    EXPECT_EQ(RevenueCatService::format(RevenueMetric::Revenue, metrics), u"💰 $1,234.56"_s);
    EXPECT_EQ(RevenueCatService::format(RevenueMetric::Orders, metrics), u"🛒 3 tx"_s);
    EXPECT_EQ(RevenueCatService::format(RevenueMetric::Avg, metrics), u"📐 avg $411.52"_s);
    EXPECT_EQ(RevenueCatService::format(RevenueMetric::Top, metrics), u"📊 MRR: $99.00"_s);
}

TEST(RevenueCatFigure, hasNoAverageWithoutTransactions)
{
    for (const qint64 count : { 0, -3 }) {
        const Metrics metrics{ { u"revenue"_s, 123456 }, { u"num_tx_last_28_days"_s, count } };

        EXPECT_EQ(RevenueCatService::format(RevenueMetric::Revenue, metrics), u"💰 $1,234.56"_s);
        EXPECT_EQ(RevenueCatService::format(RevenueMetric::Avg, metrics), u"📐 no tx"_s);
    }
    EXPECT_EQ(RevenueCatService::format(RevenueMetric::Orders, { { u"num_tx_last_28_days"_s, -3 } }),
        u"🛒 -3 tx"_s);
}

TEST(RevenueCatFigure, isZeroWhereItsMetricIsMissing)
{
    EXPECT_EQ(RevenueCatService::format(RevenueMetric::Revenue, {}), u"💰 $0.00"_s);
    EXPECT_EQ(RevenueCatService::format(RevenueMetric::Orders, {}), u"🛒 0 tx"_s);
    EXPECT_EQ(RevenueCatService::format(RevenueMetric::Avg, {}), u"📐 no tx"_s);
    EXPECT_EQ(RevenueCatService::format(RevenueMetric::Top, {}), u"📊 MRR: $0.00"_s);
}

TEST(RevenueCatFigure, hasTheSignOfItsAmount)
{
    EXPECT_EQ(RevenueCatService::format(RevenueMetric::Top, { { u"mrr"_s, -5 } }), u"📊 MRR: -$0.05"_s);
    EXPECT_EQ(RevenueCatService::format(
                  RevenueMetric::Avg, { { u"revenue"_s, -1001 }, { u"num_tx_last_28_days"_s, 2 } }),
        u"📐 avg -$5.00"_s);
}

} // namespace
} // namespace glimmet
