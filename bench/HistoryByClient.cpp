// Reads a long history of charges as the program does, and says its text.
//
//     glimmet_history_by_client AUTHORITY.pem [ORIGIN]     without an origin: waits, with all at hand and
//     nothing fetched

#include "bench/Measure.h"
#include "platform/Clock.h"
#include "platform/DiagnosticLog.h"
#include "platform/SteadyClock.h"
#include "platform/net/HttpClient.h"
#include "revenue/StripeService.h"
#include "tests/support/FixedRegion.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

using namespace glimmet;
using namespace Qt::StringLiterals;

namespace {

QByteArray contents(const char *file)
{
    QFile authority(QString::fromLocal8Bit(file));
    if (!authority.open(QIODevice::ReadOnly))
        qFatal("%s cannot be read", file);
    return authority.readAll();
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc < 2)
        return 2;
    QCoreApplication application(argc, argv);
    DiagnosticLog log(open("/dev/null", O_WRONLY));
    HttpClient http({ .authorities = contents(argv[1]) });
    const SystemClock clock;
    const SystemSteadyClock steadyClock;
    const FixedRegion region("en_US", "America/New_York");
    StripeService stripe(
        { http, log, clock, steadyClock, region, argc > 2 ? QByteArray(argv[2]) : QByteArray() });
    if (argc == 2) {
        std::puts("ready");
        std::fflush(stdout);
        return pause();
    }

    QString text;
    stripe.fetch({ RevenueProvider::Stripe, RevenueMode::AllTime, RevenueMetric::Revenue,
                     ApiKey(u"sk_live_1"_s), {}, u"usd"_s },
        [&text](const RevenueResult &result) { text = result.text; });
    waitUntil([&] { return !text.isEmpty(); });
    std::puts(qUtf8Printable(text));
    return 0;
}
