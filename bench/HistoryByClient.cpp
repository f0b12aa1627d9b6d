// Reads a long history of charges, page after page, against a server in another process, and measures what it
// costs: pages a second, CPU, the main thread's part, memory on the way. Ends with 1 where the total is not
// exact or a page is not asked for once and in order.
//
//     glimmet_history_figures [PAGES [FAILING-PAGE]]
//     glimmet_history_figures --serve PAGES     the server alone, for others to be measured against it

#include "bench/Measure.h"
#include "platform/Clock.h"
#include "platform/DiagnosticLog.h"
#include "platform/net/HttpClient.h"
#include "revenue/StripeService.h"
#include "tests/support/FixedRegion.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

using namespace glimmet;
using namespace Qt::StringLiterals;

namespace {

constexpr int chargesOnAPage = 100;

/// The amount of a charge, cents: uneven, so that a page that is left out or read twice changes the sum.
qint64 amountOf(qint64 charge)
{
    return 100 + charge * 7919 % 99991;
}

QByteArray chargeText(qint64 number)
{
    const QByteArray id = QByteArray::number(number);
    return R"({"id":"ch_)" + id + R"(","object":"charge","amount":)" + QByteArray::number(amountOf(number))
        + R"(,"amount_captured":2000,"amount_refunded":0,"application":null,"balance_transaction":"txn_1MiN3gLkdIwHu7ixxapQrznl",)"
          R"("billing_details":{"address":{"city":null,"country":"US","line1":null,"postal_code":"42424","state":null},)"
          R"("email":"jenny.rosen@example.com","name":"Jenny Rosen","phone":null},"calculated_statement_descriptor":)"
          R"("EXAMPLE SHOP","captured":true,"created":)"
        + QByteArray::number(1795000000 - number * 60)
        + R"(,"currency":"usd","customer":"cus_NffrFeUfNV2Hib","description":")" + QByteArray(1600, 'd')
        + R"(","metadata":{"order":")" + id
        + R"("},"outcome":{"network_status":"approved_by_network","reason":null,)"
          R"("risk_level":"normal","risk_score":32,"seller_message":"Payment complete.","type":"authorized"},"paid":true,)"
          R"("payment_method_details":{"card":{"brand":"visa","checks":{"cvc_check":null},"country":"US","exp_month":3,)"
          R"("exp_year":2029,"fingerprint":"mToisGZ01V71BCos","funding":"credit","last4":"4242","network":"visa"},)"
          R"("type":"card"},"receipt_url":"https://pay.example.com/receipts/payment/CAcaFwoVYWNjdF8xTTJKVGtMa2RJ","refunded":false,)"
          R"("status":"succeeded"})";
}

QByteArray pageText(qint64 page, qint64 pages)
{
    QByteArray charges;
    for (qint64 i = 0; i < chargesOnAPage; ++i)
        charges += (i > 0 ? "," : "") + chargeText(page * chargesOnAPage + i);
    return R"({"object":"list","url":"/v1/charges","has_more":)"
        + QByteArray(page + 1 < pages ? "true" : "false") + R"(,"data":[)" + charges + "]}";
}

/// The page that a request asks for, by the number of the charge that it begins behind.
qint64 pageOf(const ReceivedRequest &request)
{
    const qsizetype cursor = request.target.indexOf("starting_after=ch_");
    return cursor < 0 ? 0 : (request.target.mid(cursor + 18).toLongLong() + 1) / chargesOnAPage;
}

/// Answers pages once and in order, and with 500 what is asked for otherwise.
HttpsServer::Handler historyServer(qint64 pages, qint64 failingPage)
{
    auto expected = std::make_shared<qint64>(0);
    return [=](const ReceivedRequest &request) {
        const qint64 page = pageOf(request);
        if (page != (*expected)++ || page == failingPage)
            return ServerAnswer{ .status = 500 };
        return ServerAnswer{ .body = pageText(page, pages) };
    };
}

qint64 exactTotal(qint64 pages)
{
    qint64 total = 0;
    for (qint64 charge = 0; charge < pages * chargesOnAPage; ++charge)
        total += amountOf(charge);
    return total;
}

/// A clock that is asked once a page, and so counts them.
class CountingClock final : public Clock {
public:
    Instant now() const override
    {
        ++m_pages;
        if (m_pages == 10 || m_pages == 500)
            std::printf("private dirty at page %d: %d kB\n", m_pages, privateDirty());
        return Instant::fromUnixSeconds(1795000000);
    }

    int pages() const { return m_pages; }

private:
    mutable int m_pages = 0;
};

} // namespace

int main(int argc, char *argv[])
{
    if (argc > 2 && QByteArray(argv[1]) == "--serve") {
        std::puts(startServer(argc, argv, historyServer(QByteArray(argv[2]).toLongLong(), -1)).constData());
        std::fflush(stdout);
        return pause();
    }
    const qint64 pages = argc > 1 ? QByteArray(argv[1]).toLongLong() : 1000;
    const qint64 failingPage = argc > 2 ? QByteArray(argv[2]).toLongLong() : -1;
    const QByteArray origin = startServer(argc, argv, historyServer(pages, failingPage));
    QCoreApplication application(argc, argv);
    DiagnosticLog log(open("/dev/null", O_WRONLY));
    HttpClient http({ .authorities = HttpsServer::authority() });
    const CountingClock clock;
    const FixedRegion region("en_US", "America/New_York");
    StripeService stripe({ http, log, clock, region, origin });

    QString text;
    QElapsedTimer timer;
    timer.start();
    stripe.fetch({ RevenueProvider::Stripe, RevenueMode::AllTime, RevenueMetric::Revenue,
                     ApiKey(u"sk_live_1"_s), {}, u"usd"_s },
        [&](const QString &answer) { text = answer; });
    waitUntil([&] { return !text.isEmpty(); });

    const double seconds = static_cast<double>(timer.elapsed()) / 1e3;
    const double count = clock.pages();
    const QString wanted = failingPage < 0
        ? format(RevenueMetric::Revenue, { exactTotal(pages), 1, 0 }, u"USD"_s)
        : u"⚠ http 500"_s;
    std::printf(
        "%lld pages: %s (%s)\n%.1f s, %.0f pages a second, CPU %.2f ms a page, main thread %.0f µs a page, "
        "private dirty at the end %d kB\n",
        static_cast<long long>(pages), qUtf8Printable(text),
        text == wanted ? "exact" : qUtf8Printable(wanted), seconds, count / seconds, processCpu() / count,
        threadCpu() * 1e3 / count, privateDirty());
    return text == wanted ? 0 : 1;
}
