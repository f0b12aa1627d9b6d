// Measures what a thousand prices cost the program, against a server in another process: as the program
// fetches them, and as a network manager and Qt's own JSON reader on the main thread would.

#include "bench/Measure.h"
#include "core/TickerViewModel.h"
#include "platform/DiagnosticLog.h"
#include "platform/net/HttpClient.h"
#include "prices/CryptoService.h"
#include "tests/support/FixedRegion.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/MemoryPreferences.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSslCertificate>
#include <QSslConfiguration>

#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <sys/wait.h>
#include <unistd.h>

using namespace glimmet;
using namespace Qt::StringLiterals;

namespace {

constexpr int symbols = 200;
constexpr int rounds = 5;

QByteArray chart()
{
    QByteArray times;
    QByteArray closes;
    for (int hour = 0; hour < 24; ++hour) {
        times += QByteArray::number(1795000000 + hour * 3600) + (hour < 23 ? "," : "");
        closes += QByteArray::number(97000.123456 + hour, 'f', 6) + (hour < 23 ? "," : "");
    }
    return R"({"chart":{"result":[{"meta":{"currency":"USD","symbol":"BTC-USD","exchangeName":"CCC",)"
           R"("instrumentType":"CRYPTOCURRENCY","regularMarketPrice":97012.34,"chartPreviousClose":95767.1},)"
           R"("timestamp":[)"
        + times + R"(],"indicators":{"quote":[{"open":[)" + closes + R"(],"high":[)" + closes + R"(],"low":[)"
        + closes + R"(],"close":[)" + closes + R"(],"volume":[)" + times + R"(]}]}}],"error":null}})";
}

void report(const char *what, const std::function<void()> &fetchAll)
{
    const int before = privateDirty();
    fetchAll();
    const int afterFirst = privateDirty();
    const double whole = processCpu();
    const double main = threadCpu();
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < rounds; ++i)
        fetchAll();
    const int answers = symbols * rounds;
    std::printf("%-14s %d prices: %lld ms, CPU %.0f ms, main thread %.1f µs an answer, private dirty %d kB "
                "before the "
                "first, %d kB after %d, %d kB after %d\n",
        what, answers, static_cast<long long>(timer.elapsed()), processCpu() - whole,
        (threadCpu() - main) * 1000 / answers, before, afterFirst, symbols, privateDirty(),
        answers + symbols);
}

QStringList symbolList()
{
    QStringList list;
    for (int i = 0; i < symbols; ++i)
        list.append(u"SYM%1-USD"_s.arg(i));
    return list;
}

void measureProgram(const QByteArray &origin)
{
    DiagnosticLog log(open("/dev/null", O_WRONLY));
    HttpClient http({ .authorities = HttpsServer::authority() });
    CryptoService prices(http, log, origin);
    int answers = 0;
    /// Counts what comes through.
    struct Counting final : PriceSource {
        PriceSource &source;
        int &count;
        Counting(PriceSource &next, int &counter)
            : source(next)
            , count(counter)
        {
        }
        void fetchPrice(const QString &symbol, Completion completion) override
        {
            source.fetchPrice(symbol, [this, completion](const PriceResult &result) {
                count += std::holds_alternative<CryptoPrice>(result) ? 1 : 0;
                completion(result);
            });
        }
    } counting(prices, answers);
    ManualClock clock;
    ManualTimers timers(clock);
    FixedRegion region("en_US", "America/New_York");
    MemoryPreferences preferences;
    preferences.setStringList(u"glimmet.cryptoSymbols"_s, {});
    TickerViewModel ticker({ clock, region, timers, preferences, &counting });
    ticker.setCryptoSymbols(symbolList());
    report("the program", [&] {
        const int wanted = answers + symbols;
        ticker.fetchAllCryptoPrices();
        waitUntil([&] { return answers >= wanted; });
    });
}

void measureMainThread(const QByteArray &origin)
{
    QNetworkAccessManager network;
    QSslConfiguration trusting = QSslConfiguration::defaultConfiguration();
    trusting.setCaCertificates(QSslCertificate::fromData(HttpsServer::authority()));
    int answers = 0;
    QHash<QString, CryptoPrice> prices;
    const QStringList list = symbolList();
    report("main thread", [&] {
        const int wanted = answers + symbols;
        for (const QString &symbol : list) {
            QNetworkRequest request(QUrl(QString::fromUtf8(origin) + "/v8/finance/chart/"_L1 + symbol));
            request.setSslConfiguration(trusting);
            QNetworkReply *reply = network.get(request);
            QObject::connect(reply, &QNetworkReply::finished, reply, [&, reply, symbol] {
                const QJsonObject result =
                    QJsonDocument::fromJson(reply->readAll())[u"chart"][u"result"][0].toObject();
                QList<double> history;
                for (const auto &close : result[u"indicators"][u"quote"][0][u"close"].toArray())
                    history.append(close.toDouble());
                prices.insert(
                    symbol, { symbol, result[u"meta"][u"regularMarketPrice"].toDouble(), 0, history });
                ++answers;
                reply->deleteLater();
            });
        }
        waitUntil([&] { return answers >= wanted; });
    });
}

} // namespace

int main(int argc, char *argv[])
{
    const QByteArray origin =
        startServer(argc, argv, [](const ReceivedRequest &) { return ServerAnswer{ .body = chart() }; });
    // Each way in a process of its own: what one leaves in memory is not the other's.
    const pid_t other = fork();
    if (other != 0)
        waitpid(other, nullptr, 0);
    QCoreApplication application(argc, argv);
    if (other == 0)
        measureMainThread(origin);
    else
        measureProgram(origin);
    return 0;
}
