#include "prices/CryptoService.h"

#include "platform/DiagnosticLog.h"
#include "tests/support/HttpFetching.h"
#include "tests/support/Printing.h"

#include <QTemporaryFile>
#include <QTest>
#include <QThread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using testing::IsEmpty;

using Ending = ServerAnswer::Ending;
using Price = std::optional<CryptoPrice>;

constexpr int deadline = 10'000; // milliseconds

const QByteArray goodChart = R"({"chart":{"result":[{
    "meta":{"regularMarketPrice":97000,"chartPreviousClose":77600},
    "indicators":{"quote":[{"close":[96000.5,null,97000]}]}}],"error":null}})";
const QByteArray unknownSymbol =
    R"({"chart":{"result":null,"error":{"code":"Not Found","description":"No data found"}}})";

Price priceOf(const PriceResult &result)
{
    const auto *price = std::get_if<CryptoPrice>(&result);
    return price ? Price(*price) : std::nullopt;
}

/// A service that writes its log into a file and asks a server of the test's.
class Prices {
public:
    explicit Prices(const QByteArray &endpoint, std::chrono::milliseconds idleTimeout = 15s)
        : m_http(settings(idleTimeout))
        , m_service(m_http, m_log, endpoint)
    {
    }

    CryptoService &service() { return m_service; }
    /// The price that comes of it, once.
    Price fetched(const QString &symbol) { return priceOf(result(symbol)); }
    /// What comes of it, once.
    PriceResult result(const QString &symbol)
    {
        std::optional<PriceResult> result;
        m_service.fetchPrice(symbol, [&result](const PriceResult &value) {
            EXPECT_FALSE(result) << "a second result";
            EXPECT_EQ(QThread::currentThread(), qApp->thread());
            result = value;
        });
        EXPECT_FALSE(result) << "the result came within the call";
        EXPECT_TRUE(QTest::qWaitFor([&result] { return result.has_value(); }, deadline)) << "no result";
        return result.value_or(PriceFailure::NoAnswer);
    }
    QByteArray logged() const
    {
        QFile file(m_file.fileName());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "no log";
    }

private:
    static HttpSettings settings(std::chrono::milliseconds idleTimeout)
    {
        HttpSettings settings = trustingSettings();
        settings.idleTimeout = idleTimeout;
        return settings;
    }
    static int opened(QTemporaryFile &file)
    {
        EXPECT_TRUE(file.open());
        return file.handle();
    }

    QTemporaryFile m_file;
    DiagnosticLog m_log{ opened(m_file) };
    HttpClient m_http;
    CryptoService m_service;
};

HttpsServer::Handler always(const ServerAnswer &answer)
{
    return [answer](const ReceivedRequest &) { return answer; };
}

/// No price comes of that answer, for that reason, and the log tells nothing.
void expectFailure(PriceFailure reason, const ServerAnswer &answer)
{
    const HttpsServer server(always(answer));
    Prices prices(server.origin(), 400ms);

    EXPECT_EQ(prices.result(u"BTC"_s), PriceResult(reason));
    EXPECT_EQ(prices.logged(), "");
}

TEST(CryptoService, fetchesThePriceAndLogsIt)
{
    const HttpsServer server(always({ .body = goodChart }));
    Prices prices(server.origin());

    const Price price = prices.fetched(u"BTC"_s);

    ASSERT_TRUE(price);
    EXPECT_EQ(price->id, u"BTC"_s);
    EXPECT_EQ(price->price, 97000);
    EXPECT_EQ(price->change, 25);
    EXPECT_EQ(price->history, QList<double>({ 96000.5, 97000 }));
    EXPECT_EQ(prices.logged(), "[glimmet] BTC: $97000.0 +25.0%  2pts\n");
}

TEST(CryptoService, asksForTheSymbolAsTheServiceKnowsItAndKeepsItAsTheUserHasIt)
{
    const HttpsServer server(always({ .body = goodChart }));
    Prices prices(server.origin());
    const QList<std::pair<QString, QByteArray>> symbols{ { u"btc"_s, "BTC-USD" }, { u" Btc "_s, "BTC-USD" },
        { u"eth-usd"_s, "ETH-USD" }, { u"AAPL"_s, "AAPL" }, { u"BTC-EUR"_s, "BTC-EUR" },
        { u"^GSPC"_s, "%5EGSPC" }, { u"eurusd=x"_s, "EURUSD%3DX" }, { u"a/b?c#d"_s, "A%2FB%3FC%23D" },
        { u"é"_s, "%C3%89" } };

    for (const auto &[symbol, step] : symbols) {
        const Price price = prices.fetched(symbol);

        ASSERT_TRUE(price);
        EXPECT_EQ(price->id, symbol);
        EXPECT_EQ(server.requests().last().target, "/v8/finance/chart/" + step + "?interval=1h&range=1d");
    }
}

TEST(CryptoService, asksAsABrowser)
{
    const HttpsServer server(always({ .body = goodChart }));
    Prices prices(server.origin());

    prices.fetched(u"BTC"_s);

    ASSERT_EQ(server.requests().size(), 1);
    const ReceivedRequest request = server.requests().first();
    int names = 0;
    for (const auto &[name, value] : request.headers)
        names += name.toLower() == "user-agent";
    EXPECT_EQ(names, 1);
    EXPECT_EQ(request.method, "GET");
    EXPECT_EQ(request.header("User-Agent"), "Mozilla/5.0");
    EXPECT_EQ(request.header("Cookie"), "");
}

TEST(CryptoService, takesAPriceWhateverTheStatus)
{
    const HttpsServer server(always({ .status = 500, .body = goodChart }));
    Prices prices(server.origin());

    EXPECT_TRUE(prices.fetched(u"BTC"_s));
}

TEST(CryptoService, tellsWhatIsWrongWithAnErrorOfTheService)
{
    expectFailure(PriceFailure::NotFound, { .status = 404, .body = unknownSymbol });
    expectFailure(PriceFailure::NotFound, { .status = 200, .body = unknownSymbol });
    expectFailure(PriceFailure::Unreadable, { .status = 429, .body = "Too Many Requests\r\n" });
    expectFailure(PriceFailure::Unreadable, { .status = 500, .body = "<html></html>" });
    expectFailure(PriceFailure::Unreadable,
        { .status = 401, .headers = { { "WWW-Authenticate", "Basic realm=\"a\"" } } });
    expectFailure(PriceFailure::Unreadable, { .status = 204 });
}

TEST(CryptoService, hasNothingWhereTheAnswerIsCutOrDoesNotCome)
{
    // The first half of the body is a good chart already.
    expectFailure(PriceFailure::NoAnswer,
        { .body = goodChart + QByteArray(goodChart.size(), ' '), .ending = Ending::CutInBody });
    expectFailure(PriceFailure::NoAnswer, { .body = goodChart, .ending = Ending::CutBeforeAnswer });
    expectFailure(PriceFailure::NoAnswer, { .body = goodChart, .pieces = 2, .pause = 60s });
    expectFailure(PriceFailure::NoAnswer, { .body = goodChart, .ending = Ending::Silence });
}

TEST(CryptoService, tellsWhereThereIsNoNetwork)
{
    HttpsServer server(always({ .body = goodChart }));
    Prices prices(server.origin());

    server.close();

    EXPECT_EQ(prices.result(u"BTC"_s), PriceResult(PriceFailure::NoNetwork));
    EXPECT_EQ(prices.logged(), "");
}

TEST(CryptoService, waitsForASlowAnswer)
{
    const HttpsServer server(always({ .body = goodChart, .pieces = 4, .pause = 150ms }));
    Prices prices(server.origin(), 400ms);

    EXPECT_TRUE(prices.fetched(u"BTC"_s));
}

TEST(CryptoService, hasNothingFromAServerThatIsNotTrusted)
{
    const HttpsServer server(always({ .body = goodChart }), HttpsServer::Certificate::OtherHost);
    Prices prices(server.origin());

    EXPECT_EQ(prices.fetched(u"BTC"_s), std::nullopt);

    EXPECT_EQ(prices.logged(), "");
    EXPECT_EQ(server.requests().size(), 0);
}

TEST(CryptoService, hasNothingFromWhereTheServerSendsItTo)
{
    const HttpsServer other(always({ .body = goodChart }));
    const HttpsServer server(
        always({ .status = 302, .body = "moved", .headers = { { "Location", other.origin() + "/" } } }));
    Prices prices(server.origin());

    EXPECT_EQ(prices.fetched(u"BTC"_s), std::nullopt);

    EXPECT_EQ(prices.logged(), "");
    EXPECT_EQ(other.connections(), 0);
}

TEST(CryptoService, findsNothingForASymbolThatCannotBeSentAndAsksNobody)
{
    const HttpsServer server(always({ .body = goodChart }));
    Prices prices(server.origin());

    for (const QString &symbol : { u".."_s, u"."_s, u" .. "_s, QString(QChar(0xD800)) })
        EXPECT_EQ(prices.result(symbol), PriceResult(PriceFailure::NotFound));

    EXPECT_EQ(prices.logged(), "");
    EXPECT_EQ(server.connections(), 0);
}

TEST(CryptoService, answersTwoHundredSymbolsAtOnceEachByItself)
{
    const HttpsServer server([](const ReceivedRequest &request) {
        // The price is the number in the symbol; the answers overtake each other.
        const int number = request.target.mid(qstrlen("/v8/finance/chart/S")).split('?').first().toInt();
        return ServerAnswer{ .body = R"({"chart":{"result":[{"meta":{"regularMarketPrice":)"
                + QByteArray::number(number) + "}}]}}",
            .delay = std::chrono::milliseconds(number * 37 % 23) };
    });
    Prices prices(server.origin());
    QList<int> order;
    QList<double> received(200, -1);

    for (int number = 0; number < 200; ++number)
        prices.service().fetchPrice(u"s"_s + QString::number(number), [&, number](const PriceResult &result) {
            const Price price = priceOf(result);
            EXPECT_EQ(QThread::currentThread(), qApp->thread());
            ASSERT_TRUE(price);
            EXPECT_EQ(price->id, u"s"_s + QString::number(number));
            received[number] = price->price;
            order.append(number);
        });
    EXPECT_THAT(order, IsEmpty());
    ASSERT_TRUE(QTest::qWaitFor([&order] { return order.size() >= 200; }, deadline));
    QCoreApplication::processEvents();

    EXPECT_EQ(order.size(), 200);
    EXPECT_FALSE(std::is_sorted(order.begin(), order.end()));
    for (int number = 0; number < 200; ++number)
        EXPECT_EQ(received[number], number);
    EXPECT_EQ(prices.logged().count('\n'), 200);
}

TEST(CryptoService, tellsNobodyAfterItsEnd)
{
    const HttpsServer server(always({ .body = goodChart }));
    HttpClient http(trustingSettings());
    DiagnosticLog log(-1);
    auto service = std::make_unique<CryptoService>(http, log, server.origin());
    service->fetchPrice(u"BTC"_s, [](const PriceResult &) { ADD_FAILURE() << "called"; });

    service.reset();

    // This one is answered after it.
    EXPECT_EQ(fetched(http, server.origin() + "/"), answer(200, goodChart));
}

} // namespace
} // namespace glimmet
