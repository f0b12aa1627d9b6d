#pragma once

#include "platform/net/HttpClient.h"
#include "revenue/RevenueServices.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FixedRegion.h"
#include "tests/support/HttpsServer.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Printing.h"

#include <QStringList>
#include <QTest>

#include <gtest/gtest.h>

namespace glimmet {

/// The five services with one server that stands for all of them. It is 2026-11-20 15:30:00 in New York.
class ServedRevenue : public testing::Test {
protected:
    static constexpr int deadline = 30'000; // milliseconds, for what takes far less

    ServedRevenue() { clock.set(instantAt(QStringLiteral("2026-11-20T20:30:00Z"))); }

    /// What the server answers, on its thread. Set before the first request.
    HttpsServer::Handler answer = [](const ReceivedRequest &) { return ServerAnswer{}; };

    static RevenueQuery query(RevenueProvider provider)
    {
        RevenueQuery query;
        query.provider = provider;
        query.apiKey = ApiKey(QStringLiteral("sk_live_51Hq0aaEXAMPLE"));
        query.projectID = QStringLiteral("proj1ab2c3d4");
        query.currency = provider == RevenueProvider::Stripe ? QStringLiteral("usd") : QStringLiteral("USD");
        return query;
    }
    RevenueFetcher::Completion collected()
    {
        return [this](const RevenueResult &result) { texts.append(result.text); };
    }
    /// The one text that a fetch ends with.
    QString fetched(const RevenueQuery &query)
    {
        texts.clear();
        services->fetch(query, collected());
        return waitForTexts(1) ? texts.first() : QStringLiteral("no answer");
    }
    bool waitForTexts(int count) const
    {
        return QTest::qWaitFor([this, count] { return texts.size() >= count; }, deadline);
    }
    bool waitForRequests(int count) const
    {
        return QTest::qWaitFor([this, count] { return server.requests().size() >= count; }, deadline);
    }
    QByteArrayList targets() const
    {
        QByteArrayList targets;
        for (const ReceivedRequest &request : server.requests())
            targets.append(request.target);
        return targets;
    }

    ManualClock clock;
    FixedRegion region{ "en_US", "America/New_York" };
    CapturedLog log;
    QStringList texts; ///< those of all fetches, in the order in which they came
    HttpsServer server{ [this](const ReceivedRequest &request) { return answer(request); } };
    std::optional<HttpClient> http{ std::in_place,
        HttpSettings{
            .idleTimeout = std::chrono::milliseconds(1500), .authorities = HttpsServer::authority() } };
    std::optional<RevenueServices> services{ std::in_place, *http, log.log(), clock, clock, region,
        endpointsAt(server.origin()) };
};

} // namespace glimmet
