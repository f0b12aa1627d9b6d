#include "prices/PriceChart.h"

#include "tests/support/Printing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

std::optional<CryptoPrice> parse(const QByteArray &body)
{
    const PriceResult result = PriceChart::parse(body, u"btc"_s);
    const auto *price = std::get_if<CryptoPrice>(&result);
    return price ? std::optional(*price) : std::nullopt;
}

PriceResult failure(PriceFailure failure)
{
    return failure;
}

/// An answer with this result list.
QByteArray withResult(const QByteArray &result)
{
    return "{\"chart\":{\"result\":" + result + ",\"error\":null}}";
}

/// An answer with these members of its "meta".
QByteArray withMeta(const QByteArray &members)
{
    return withResult("[{\"meta\":{" + members + "}}]");
}

std::optional<double> changeOf(const QByteArray &meta)
{
    const auto price = parse(withMeta(meta));
    return price ? std::optional(price->change) : std::nullopt;
}

TEST(PriceChart, givesPriceChangeAndHistory)
{
    const auto price = parse(R"({"chart":{"result":[{"meta":{"currency":"USD","symbol":"BTC-USD",
        "regularMarketPrice":97012.34765625,"chartPreviousClose":95767.371,"priceHint":2},
        "timestamp":[1,2,3],"indicators":{"quote":[{"open":[1,2,3],"close":[95767.25,null,97012.34765625],
        "volume":[0,null,9]}]}}],"error":null}})");

    ASSERT_TRUE(price);
    EXPECT_EQ(price->id, u"btc"_s);
    EXPECT_EQ(price->price, 97012.34765625);
    EXPECT_EQ(price->change, (97012.34765625 - 95767.371) / 95767.371 * 100);
    EXPECT_THAT(price->history, ElementsAre(95767.25, 97012.34765625));
}

TEST(PriceChart, keepsTheSymbolAsItWasPassed)
{
    const QByteArray body = withMeta(R"("symbol":"ETH-USD","regularMarketPrice":100)");

    for (const QString &symbol : { u" btc "_s, u"BTC"_s, u"BTC-USD"_s, u""_s })
        EXPECT_EQ(PriceChart::parse(body, symbol), PriceResult(CryptoPrice{ symbol, 100, 0, {} }));
}

TEST(PriceChart, takesTheFirstResult)
{
    const auto price = parse(
        withResult(R"([{"meta":{"regularMarketPrice":1}},{"meta":{"regularMarketPrice":2}},{"other":3}])"));

    EXPECT_EQ(price, (CryptoPrice{ u"btc"_s, 1, 0, {} }));
    EXPECT_EQ(parse(withResult(R"([{},{"meta":{"regularMarketPrice":2}}])")), std::nullopt);
}

TEST(PriceChart, takesEveryNumberForAPrice)
{
    const auto priceOf = [](const QByteArray &number) {
        return parse(withMeta("\"regularMarketPrice\":" + number))->price;
    };

    EXPECT_EQ(priceOf("105"), 105.0);
    EXPECT_EQ(priceOf("105.0"), 105.0);
    EXPECT_EQ(priceOf("1.05e2"), 105.0);
    EXPECT_EQ(priceOf("0"), 0.0);
    EXPECT_EQ(priceOf("-37.63"), -37.63);
    EXPECT_EQ(priceOf("0.00001234"), 0.00001234);
    EXPECT_EQ(priceOf("18446744073709551615"), 18446744073709551616.0);
}

TEST(PriceChart, takesNothingElseForAPrice)
{
    for (const char *price : { "\"100\"", "null", "true", "false", "[100]", "{\"raw\":100}", "\"\"" })
        EXPECT_EQ(parse(withMeta("\"regularMarketPrice\":" + QByteArray(price))), std::nullopt) << price;
}

TEST(PriceChart, comparesWithThePreviousCloseInPercent)
{
    EXPECT_EQ(changeOf(R"("regularMarketPrice":100,"chartPreviousClose":80)"), 25.0);
    EXPECT_EQ(changeOf(R"("regularMarketPrice":60.0,"chartPreviousClose":80.0)"), -25.0);
    EXPECT_EQ(changeOf(R"("regularMarketPrice":80,"chartPreviousClose":80)"), 0.0);
    EXPECT_EQ(changeOf(R"("regularMarketPrice":0,"chartPreviousClose":80)"), -100.0);
    EXPECT_EQ(changeOf(R"("regularMarketPrice":-80,"chartPreviousClose":80)"), -200.0);
    EXPECT_EQ(changeOf(R"("regularMarketPrice":0.3,"chartPreviousClose":0.1)"), (0.3 - 0.1) / 0.1 * 100);
}

TEST(PriceChart, hasNotChangedWithoutAPreviousClose)
{
    EXPECT_EQ(changeOf(R"("regularMarketPrice":100)"), 0.0);
    EXPECT_EQ(changeOf(R"("regularMarketPrice":100,"previousClose":80)"), 0.0);
    for (const char *previous : { "0", "-0.0", "-80", "1e-400", "\"80\"", "null", "true", "[80]", "{}" })
        EXPECT_EQ(changeOf(R"("regularMarketPrice":100,"chartPreviousClose":)" + QByteArray(previous)), 0.0)
            << previous;
}

TEST(PriceChart, bearsChangesThatAreTooLarge)
{
    const double infinity = std::numeric_limits<double>::infinity();

    EXPECT_EQ(changeOf(R"("regularMarketPrice":100,"chartPreviousClose":1e-300)"), 100 / 1e-300 * 100);
    EXPECT_EQ(changeOf(R"("regularMarketPrice":1e300,"chartPreviousClose":1e-300)"), infinity);
    EXPECT_EQ(changeOf(R"("regularMarketPrice":-1.7e308,"chartPreviousClose":1.7e308)"), -infinity);
    EXPECT_EQ(changeOf(R"("regularMarketPrice":1e400,"chartPreviousClose":1)"), std::nullopt);
}

TEST(PriceChart, isNothingWhereAStepToThePriceIsMissing)
{
    for (const char *body : { "{}", R"({"finance":{}})", R"({"chart":{}})", R"({"chart":{"error":null}})" })
        EXPECT_EQ(parse(body), std::nullopt) << body;
    EXPECT_EQ(parse(withResult("[]")), std::nullopt);
    EXPECT_EQ(parse(withResult("[{}]")), std::nullopt);
    EXPECT_EQ(parse(withMeta("")), std::nullopt);
    EXPECT_EQ(parse(withMeta(R"("RegularMarketPrice":100)")), std::nullopt);
}

TEST(PriceChart, isNothingWhereAStepToThePriceIsOfAnotherType)
{
    const QByteArray chart = R"({"result":[{"meta":{"regularMarketPrice":100}}]})";
    const QByteArray meta = R"({"meta":{"regularMarketPrice":100}})";
    ASSERT_TRUE(parse("{\"chart\":" + chart + '}'));

    for (const QByteArray &wrong : { "null"_ba, "true"_ba, "1"_ba, "\"chart\""_ba, '[' + chart + ']' }) {
        EXPECT_EQ(parse(wrong), std::nullopt) << wrong.toStdString();
        EXPECT_EQ(parse("{\"chart\":" + wrong + '}'), std::nullopt) << wrong.toStdString();
    }
    EXPECT_EQ(parse("[{\"chart\":" + chart + "}]"), std::nullopt);
    for (const QByteArray &wrong : { "null"_ba, "true"_ba, "1"_ba, "\"\""_ba, meta, "{\"0\":" + meta + '}' })
        EXPECT_EQ(parse(withResult(wrong)), std::nullopt) << wrong.toStdString();
    for (const char *wrong : { "null", "true", "1", "\"\"", R"([{"regularMarketPrice":100}])" })
        EXPECT_EQ(parse(withResult("[{\"meta\":" + QByteArray(wrong) + "}]")), std::nullopt) << wrong;
}

TEST(PriceChart, isNothingWhereAnyResultIsNoObject)
{
    const QByteArray good = R"({"meta":{"regularMarketPrice":100}})";
    ASSERT_TRUE(parse(withResult('[' + good + ",{}]")));

    for (const char *wrong : { "null", "1", "\"\"", "[]", "true" }) {
        EXPECT_EQ(parse(withResult('[' + good + ',' + wrong + ']')), std::nullopt) << wrong;
        EXPECT_EQ(parse(withResult('[' + QByteArray(wrong) + ',' + good + ']')), std::nullopt) << wrong;
    }
}

TEST(PriceChart, takesTheLastOfSeveralMembersWithOneName)
{
    const auto price = parse(R"({"chart":null,"chart":{"result":[],"result":[{"meta":1,
        "meta":{"regularMarketPrice":"1","regularMarketPrice":2}}]}})");

    EXPECT_EQ(price, (CryptoPrice{ u"btc"_s, 2, 0, {} }));
    EXPECT_EQ(parse(withMeta(R"("regularMarketPrice":2,"regularMarketPrice":"1")")), std::nullopt);
}

TEST(PriceChart, isNothingForTheBodiesOfRefusals)
{
    EXPECT_EQ(parse(R"({"chart":{"result":null,"error":{"code":"Not Found",
        "description":"No data found, symbol may be delisted"}}})"),
        std::nullopt);
    EXPECT_EQ(parse("Too Many Requests\r\n"), std::nullopt);
    EXPECT_EQ(parse("Edge: Too Many Requests"), std::nullopt);
    EXPECT_EQ(parse(R"({"finance":{"result":null,"error":{"code":"Unauthorized"}}})"), std::nullopt);
    EXPECT_EQ(parse("<!DOCTYPE html><html></html>"), std::nullopt);
    EXPECT_EQ(parse(""), std::nullopt);
}

TEST(PriceChart, isNotFoundWhereTheServiceHasNoResultForTheSymbol)
{
    for (const char *body : { R"({"chart":{"result":null,"error":{"code":"Not Found"}}})",
             R"({"chart":{"result":[],"error":{"code":"Not Found"}}})",
             R"({"chart":{"result":null,"error":null}})", R"({"chart":{"result":[]}})" })
        EXPECT_EQ(PriceChart::parse(body, u"btc"_s), failure(PriceFailure::NotFound)) << body;
}

TEST(PriceChart, isUnreadableWhereTheServiceSaysAnythingElse)
{
    for (const char *body : { R"({"chart":{"result":null,"error":{"code":"Internal Server Error"}}})",
             R"({"finance":{"result":null,"error":{"code":"Not Found"}}})", R"({"chart":{}})",
             R"({"chart":{"error":{"code":"Not Found"}}})", R"({"chart":{"result":[{"meta":{}}]}})",
             R"({"chart":{"result":{}}})", "null", "Too Many Requests\r\n", "" })
        EXPECT_EQ(PriceChart::parse(body, u"btc"_s), failure(PriceFailure::Unreadable)) << body;
}

TEST(PriceChart, isNothingWhereTheBodyIsNoJson)
{
    const QByteArray good = withMeta("\"regularMarketPrice\":100");
    ASSERT_TRUE(parse(good));
    EXPECT_TRUE(parse("\xEF\xBB\xBF" + good + "\r\n"));

    EXPECT_EQ(parse(good + 'x'), std::nullopt);
    EXPECT_EQ(parse(good + good), std::nullopt);
    EXPECT_EQ(parse(good.chopped(1)), std::nullopt);
    EXPECT_EQ(parse(withMeta("\"regularMarketPrice\":NaN")), std::nullopt);
    EXPECT_EQ(parse(withMeta("\"regularMarketPrice\":100,\"unit\":\"\xFF\"")), std::nullopt);
}

} // namespace
} // namespace glimmet
