#include "prices/PriceChart.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

const QByteArray answer = R"({"chart":{"result":[{"meta":{"currency":"USD","symbol":"BTC-USD",
    "exchangeName":"CCC","fullExchangeName":"CCC","instrumentType":"CRYPTOCURRENCY",
    "firstTradeDate":1410912000,"regularMarketTime":1777881600,"hasPrePostMarketData":false,"gmtoffset":0,
    "timezone":"UTC","regularMarketPrice":97012.34765625,"fiftyTwoWeekHigh":126198.07,
    "longName":"Bitcoin \u20bf USD \u2013 \ud83d\ude80","chartPreviousClose":95767.371,"priceHint":2,
    "currentTradingPeriod":{"pre":{"timezone":"UTC","start":1777852800,"end":1777852800,"gmtoffset":0}},
    "validRanges":["1d","5d","1mo","max"]},"timestamp":[1777852800,1777856400,1777860000],
    "indicators":{"quote":[{"open":[95767.37,95801.5,null],"volume":[0,1327104000,null],
    "close":[95780.125,null,97012.34765625],"low":[95700,95650.0,null]}]}}],"error":null}})";

/// A price that the menu bar and the chart can show: everything in it is a number.
bool isWhole(const CryptoPrice &price)
{
    const auto isFinite = [](double value) { return std::isfinite(value); };
    return price.id == u"btc"_s && isFinite(price.price) && !std::isnan(price.change)
        && std::all_of(price.history.begin(), price.history.end(), isFinite)
        && !price.menuBarString().isEmpty();
}

/// How many of the answers that `damage` makes still hold a price; none may hold half a one.
template <typename Damage> int readableOf(int answers, Damage damage)
{
    int readable = 0;
    for (int round = 0; round < answers; ++round) {
        const PriceResult result = PriceChart::parse(damage(round), u"btc"_s);
        const auto *price = std::get_if<CryptoPrice>(&result);
        EXPECT_TRUE(price == nullptr || isWhole(*price)) << round;
        readable += price != nullptr ? 1 : 0;
    }
    return readable;
}

TEST(PriceChartFuzz, givesNothingForAnAnswerThatWasCutOff)
{
    ASSERT_TRUE(std::holds_alternative<CryptoPrice>(PriceChart::parse(answer, u"btc"_s)));

    EXPECT_EQ(readableOf(int(answer.size()), [](int size) { return answer.first(size); }), 0);
}

TEST(PriceChartFuzz, givesNothingForAnAnswerThatBeginsLate)
{
    EXPECT_EQ(readableOf(int(answer.size()) - 1, [](int first) { return answer.sliced(first + 1); }), 0);
}

TEST(PriceChartFuzz, givesAWholePriceOrNothingForFlippedBits)
{
    std::mt19937 random(20260504); // NOLINT(cert-msc51-cpp): the same answers in every run.
    const auto flipped = [&random](int round) {
        QByteArray body = answer;
        for (int left = 1 + round % 4; left > 0; --left)
            body.data()[random() % std::size_t(body.size())] ^= char(1 << random() % 8);
        return body;
    };

    const int readable = readableOf(20'000, flipped);

    EXPECT_GT(readable, 1'000);
    EXPECT_LT(readable, 15'000);
}

TEST(PriceChartFuzz, givesAWholePriceOrNothingForAlteredValues)
{
    static const QList<QByteArray> values{ "null", "true", "0", "-1", "1e308", "5e-324",
        "18446744073709551615", "\"1\"", "[]", "[null]", "{}", "[{}]", "{\"close\":[1]}", "NaN", "",
        "1e400" };
    std::mt19937 random(20260505); // NOLINT(cert-msc51-cpp): the same answers in every run.
    const auto altered = [&random](int) {
        QByteArray body = answer;
        const qsizetype colon = body.indexOf(':', qsizetype(random() % std::size_t(body.lastIndexOf(':'))));
        qsizetype end = colon + 1;
        while (!QByteArrayView(",]}").contains(body.at(end)))
            ++end;
        return body.replace(
            colon + 1, end - colon - 1, values.at(qsizetype(random() % std::size_t(values.size()))));
    };

    EXPECT_GT(readableOf(5'000, altered), 500);
}

} // namespace
} // namespace glimmet
