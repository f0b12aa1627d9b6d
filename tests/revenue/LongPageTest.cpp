#include "tests/revenue/ServedRevenue.h"

#include <algorithm>
#include <functional>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

using enum RevenueProvider;

constexpr int ordersOnThePage = 12'345;

/// A clock that knows how often it was asked.
class CountingClock final : public Clock {
public:
    Instant now() const override
    {
        ++asked;
        return instantAt(u"2026-11-20T20:30:00Z"_s);
    }

    mutable int asked = 0;
};

/// Pages of far more orders than the platforms send.
class LongPage : public ServedRevenue {
protected:
    LongPage()
    {
        services.emplace(*http, log.log(), counting, clock, region, endpointsAt(server.origin()));
        answer = [](const ReceivedRequest &request) {
            const QByteArray order = orderFor(request.target);
            const QByteArray orders = (order + ',').repeated(ordersOnThePage - 1) + order;
            const QByteArray name = request.target.startsWith("/payments") ? "items" : "data";
            return ServerAnswer{ .body = "{\"" + name + "\":[" + orders + "]}" };
        };
    }
    static QByteArray orderFor(const QByteArray &target)
    {
        if (target.startsWith("/payments"))
            return R"({"status":"succeeded","currency":"usd","total_amount":2,"created_at":"2026-11-20T20:00:00Z"})";
        if (target.startsWith("/v1/charges"))
            return R"({"status":"succeeded","currency":"usd","amount":2,"created":1795000000})";
        return R"({"attributes":{"status":"paid","total":2}})";
    }
    static RevenueQuery thisMonths(RevenueProvider provider)
    {
        RevenueQuery asked = query(provider);
        asked.period = RevenueMode::Month;
        return asked;
    }

    CountingClock counting;
};

TEST_F(LongPage, countsToItsLastOrder)
{
    for (const RevenueProvider provider : { Stripe, LemonSqueezy, Dodo })
        EXPECT_EQ(fetched(thisMonths(provider)), u"💰 $246.90"_s);
}

TEST_F(LongPage, leavesTheMainThreadToOthersInBetween)
{
    // Dodo's payments each look at the clock, which tells how many of them were folded.
    int before = 0;
    int mostAtOnce = 0;
    QObject others;
    const std::function<void()> turn = [&] {
        mostAtOnce = std::max(mostAtOnce, counting.asked - before);
        before = counting.asked;
        QMetaObject::invokeMethod(&others, turn, Qt::QueuedConnection);
    };
    turn();

    EXPECT_EQ(fetched(thisMonths(Dodo)), u"💰 $246.90"_s);

    EXPECT_EQ(counting.asked, ordersOnThePage);
    EXPECT_GT(mostAtOnce, 0);
    EXPECT_LE(mostAtOnce, 5'000);
}

TEST_F(LongPage, endsSilentlyWithItsService)
{
    services->fetch(thisMonths(Dodo), collected());
    ASSERT_TRUE(QTest::qWaitFor([this] { return counting.asked > 0; }, deadline));
    const int folded = counting.asked;
    ASSERT_LT(folded, ordersOnThePage);

    services.reset();

    QTest::qWait(100);
    EXPECT_EQ(counting.asked, folded);
    EXPECT_TRUE(texts.isEmpty());
}

} // namespace
} // namespace glimmet
