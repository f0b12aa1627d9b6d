#include "prices/PriceChart.h"
#include "tests/support/Printing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

/// The history in an answer whose result has these members beside a price.
std::optional<QList<double>> historyOf(const QByteArray &members)
{
    const PriceResult result = PriceChart::parse(
        R"({"chart":{"result":[{"meta":{"regularMarketPrice":100},)" + members + "}]}}", u"btc"_s);
    const auto *price = std::get_if<CryptoPrice>(&result);
    return price ? std::optional(price->history) : std::nullopt;
}

std::optional<QList<double>> historyOfCloses(const QByteArray &closes)
{
    return historyOf(R"("indicators":{"quote":[{"close":)" + closes + "}]}");
}

TEST(PriceChartHistory, isWhatIsANumberAmongTheCloses)
{
    EXPECT_THAT(historyOfCloses("[1.0,null,2]"), Optional(ElementsAre(1.0, 2.0)));
    EXPECT_THAT(historyOfCloses(R"([3,"4",true,false,[5],{"raw":6},-7.25,0])"),
        Optional(ElementsAre(3.0, -7.25, 0.0)));
    EXPECT_THAT(historyOfCloses("[2,1,2,1]"), Optional(ElementsAre(2.0, 1.0, 2.0, 1.0)));
    EXPECT_THAT(historyOfCloses("[null,null]"), Optional(IsEmpty()));
    EXPECT_THAT(historyOfCloses("[]"), Optional(IsEmpty()));
}

TEST(PriceChartHistory, isThatOfTheFirstQuote)
{
    EXPECT_THAT(
        historyOf(R"("indicators":{"quote":[{"close":[1]},{"close":[2]}]})"), Optional(ElementsAre(1.0)));
    EXPECT_THAT(historyOf(R"("indicators":{"quote":[{"open":[1]},{"close":[2]}]})"), Optional(IsEmpty()));
    EXPECT_THAT(
        historyOf(R"("indicators":{"quote":[{"close":[1],"close":[3]}]})"), Optional(ElementsAre(3.0)));
}

TEST(PriceChartHistory, isEmptyWhereItIsMissingOrMalformed)
{
    for (const char *close : { "null", "1", "\"[1]\"", "{\"0\":1}", "true" })
        EXPECT_THAT(historyOfCloses(close), Optional(IsEmpty())) << close;
    for (const char *quote : { "null", "1", "\"\"", "[]", "{}", R"({"close":[1]})", "[[1]]" })
        EXPECT_THAT(historyOf(R"("indicators":{"quote":)" + QByteArray(quote) + '}'), Optional(IsEmpty()))
            << quote;
    for (const char *indicators : { "null", "1", "\"\"", "{}", "[]", R"([{"quote":[{"close":[1]}]}])" })
        EXPECT_THAT(historyOf("\"indicators\":" + QByteArray(indicators)), Optional(IsEmpty())) << indicators;
    EXPECT_THAT(historyOf(R"("close":[1],"quote":[{"close":[1]}])"), Optional(IsEmpty()));
}

TEST(PriceChartHistory, isEmptyWhereAnyQuoteIsNoObject)
{
    for (const char *wrong : { "null", "1", "\"\"", "[]", "true" }) {
        EXPECT_THAT(historyOf(R"("indicators":{"quote":[{"close":[1]},)" + QByteArray(wrong) + "]}"),
            Optional(IsEmpty()));
        EXPECT_THAT(historyOf(R"("indicators":{"quote":[)" + QByteArray(wrong) + R"(,{"close":[1]}]})"),
            Optional(IsEmpty()));
    }
}

TEST(PriceChartBounds, leaveADayAlone)
{
    EXPECT_EQ(PriceChart::bounded({}), QList<double>());
    EXPECT_EQ(PriceChart::bounded({ 1, 3, 2 }), QList<double>({ 1, 3, 2 }));
    const QList<double> many(20'000, 5);
    EXPECT_EQ(PriceChart::bounded(many), many);
}

TEST(PriceChartBounds, keepEveryLowAndHighOfVeryMany)
{
    QList<double> history(2'000'000, 5);
    history[0] = 1;
    history[777'777] = 9;
    history[777'778] = 2;
    history[1'999'999] = 8;

    const QList<double> points = PriceChart::bounded(history);

    EXPECT_EQ(points.size(), 20'000);
    EXPECT_EQ(points.first(), 1);
    EXPECT_EQ(points.last(), 8);
    EXPECT_GT(points.indexOf(9), 7'000);
    EXPECT_EQ(points.indexOf(2), points.indexOf(9) + 1);
}

} // namespace
} // namespace glimmet
