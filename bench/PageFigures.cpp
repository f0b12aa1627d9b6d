// Reads pages of orders from a server in another process and measures what they cost the main thread: those
// of a hundred orders in CPU a page, and one of 16 MiB of the shortest orders by the longest time for which
// it holds the main thread without a break. The zone is the system's, without TZ, as most users have it.
//
//     glimmet_page_figures

#include "bench/Measure.h"
#include "platform/Clock.h"
#include "platform/DiagnosticLog.h"
#include "platform/SteadyClock.h"
#include "platform/UserRegion.h"
#include "platform/net/HttpClient.h"
#include "revenue/RevenueServices.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <fcntl.h>
#include <memory>

using namespace glimmet;
using namespace Qt::StringLiterals;

namespace {

constexpr int usualPages = 500;
constexpr int usualOrders = 100;
constexpr qsizetype longestPage = qsizetype(16) << 20; // bytes

/// Can tell the longest that an event has held the main thread, in milliseconds of its CPU.
class TimedApplication final : public QCoreApplication {
public:
    using QCoreApplication::QCoreApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        // Other threads' events come here, too.
        if (!m_isTiming || QThread::currentThread() != thread())
            return QCoreApplication::notify(receiver, event);
        const double before = threadCpu();
        const bool isHandled = QCoreApplication::notify(receiver, event);
        m_longest = std::max(m_longest, threadCpu() - before);
        return isHandled;
    }
    void startTiming()
    {
        m_longest = 0;
        m_isTiming = true;
    }
    double stopTiming()
    {
        m_isTiming = false;
        return m_longest;
    }

private:
    std::atomic<bool> m_isTiming = false;
    double m_longest = 0;
};

QByteArray orderFor(const QByteArray &target)
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const QByteArray text = now.toString(Qt::ISODate).toUtf8();
    if (target.startsWith("/payments"))
        return R"({"status":"succeeded","currency":"usd","created_at":")" + text + R"("})";
    if (target.startsWith("/v1/charges"))
        return R"({"status":"succeeded","currency":"usd","created":)"
            + QByteArray::number(now.toSecsSinceEpoch()) + '}';
    return R"({"attributes":{"status":"paid","created_at":")" + text + R"("}})";
}

QByteArray pageOf(const QByteArray &order, qsizetype count, bool hasMore)
{
    const QByteArray more = hasMore ? R"("has_more":true,"next_cursor":"x","links":{"next":"x"},)" : "";
    const QByteArray last = order.chopped(1) + R"(,"id":"x"})";
    const QByteArray name = order.contains("created_at") && !order.contains("attributes") ? "items" : "data";
    return '{' + more + '"' + name + R"(":[)" + (order + ',').repeated(count - 1) + last + "]}";
}

/// Answers by the key: "long" gets the one long page, any other as many usual ones as there are.
ServerAnswer answerTo(const ReceivedRequest &request, int &pages)
{
    const QByteArray order = orderFor(request.target);
    if (request.header("Authorization").endsWith("long"))
        return { .body = pageOf(order, (longestPage - 200) / (order.size() + 1), false) };
    pages = pages % usualPages + 1;
    return { .body = pageOf(order, usualOrders, pages < usualPages) };
}

HttpsServer::Handler pageServer()
{
    return [pages = std::make_shared<int>(0)](
               const ReceivedRequest &request) { return answerTo(request, *pages); };
}

/// What a fetch ended with, and the milliseconds of the main thread's CPU that it took.
std::pair<QString, double> fetched(RevenueServices &services, const RevenueQuery &query)
{
    QString text;
    const double before = threadCpu();
    services.fetch(query, [&text](const RevenueResult &result) { text = result.text; });
    waitUntil([&text] { return !text.isEmpty(); });
    return { text, threadCpu() - before };
}

} // namespace

int main(int argc, char *argv[])
{
    qunsetenv("TZ");
    const QByteArray origin = startServer(argc, argv, pageServer());
    TimedApplication application(argc, argv);
    DiagnosticLog log(open("/dev/null", O_WRONLY));
    HttpClient http({ .authorities = HttpsServer::authority() });
    const SystemClock clock;
    const SystemSteadyClock steadyClock;
    const SystemRegion region;
    RevenueServices services(http, log, clock, steadyClock, region, endpointsAt(origin));

    for (const RevenueProvider provider :
        { RevenueProvider::Dodo, RevenueProvider::Stripe, RevenueProvider::LemonSqueezy })
        for (const RevenueMode period : { RevenueMode::Today, RevenueMode::Week, RevenueMode::Month }) {
            const QString currency = provider == RevenueProvider::Stripe ? u"usd"_s : u"USD"_s;
            RevenueQuery query{ provider, period, RevenueMetric::Orders, ApiKey(u"usual"_s), {}, currency };
            const auto usual = fetched(services, query);
            query.apiKey = ApiKey(u"long"_s);
            application.startTiming();
            const auto longOne = fetched(services, query);
            const double longest = application.stopTiming();
            std::printf(
                "%s, %s: %.1f µs a page (%s); 16 MiB: at most %.1f ms at a time, %.1f ms in all (%s)\n",
                qUtf8Printable(rawValue(provider)), qUtf8Printable(rawValue(period)),
                usual.second * 1e3 / usualPages, qUtf8Printable(usual.first), longest, longOne.second,
                qUtf8Printable(longOne.first));
        }
    return 0;
}
