#include "revenue/HistoryBounds.h"

#include "tests/revenue/ServedRevenue.h"

#include <QCoreApplication>

#include <atomic>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using enum RevenueProvider;

/// Lists of orders that are long, or have no end at all.
class BoundedHistory : public ServedRevenue {
protected:
    BoundedHistory()
    {
        answer = [this](const ReceivedRequest &) {
            QMetaObject::invokeMethod(
                QCoreApplication::instance(), [this] { meanwhile(); }, Qt::QueuedConnection);
            return page(++pages == lastPage ? QByteArray() : "x");
        };
    }
    /// A page of one order for every platform, and what the next one is asked for by.
    static ServerAnswer page(const QByteArray &cursor)
    {
        const QByteArray order = R"({"id":")" + cursor
            + R"(","status":"succeeded","currency":"usd","amount":1,"total_amount":1,)"
              R"("attributes":{"status":"paid","total":1}})";
        const QByteArray more = cursor.isEmpty()
            ? R"("has_more":false)"_ba
            : R"("has_more":true,"links":{"next":"x"},"next_cursor":")" + cursor + '"';
        return { .body = R"({"data":[)" + order + R"(],"items":[)" + order + "]," + more + '}' };
    }
    void boundBy(const HistoryBounds &bounds)
    {
        services.emplace(*http, log.log(), clock, clock, region, endpointsAt(server.origin()), bounds);
    }
    QString ordersOf(RevenueProvider provider)
    {
        RevenueQuery asked = query(provider);
        asked.metric = RevenueMetric::Orders;
        return fetched(asked);
    }

    std::function<void()> meanwhile = [] {}; ///< on the main thread, before an answer arrives
    std::atomic<int> pages = 0; ///< that the server has given
    int lastPage = 0; ///< none
};

TEST(HistoryBounds, areAHundredThousandPagesAndAnHour)
{
    EXPECT_EQ(HistoryBounds().pages, 100'000);
    EXPECT_EQ(HistoryBounds().time, 1h);
}

TEST_F(BoundedHistory, endsWithTheLastPageThatThereMayBe)
{
    boundBy({ .pages = 3 });

    for (const RevenueProvider provider : { Stripe, LemonSqueezy, Dodo }) {
        pages = 0;
        EXPECT_EQ(ordersOf(provider), u"⚠ parse error"_s);
        EXPECT_EQ(pages, 3);
    }
    EXPECT_FALSE(log.written().contains("¢"));
}

TEST_F(BoundedHistory, isWholeWhereItHasAsManyPagesAsThereMayBe)
{
    boundBy({ .pages = 3 });
    lastPage = 3;

    EXPECT_EQ(ordersOf(Stripe), u"🛒 3 orders"_s);
    EXPECT_EQ(pages, 3);
}

TEST_F(BoundedHistory, isBoundedAnewForEachFetch)
{
    boundBy({ .pages = 3 });
    lastPage = 5;
    EXPECT_EQ(ordersOf(Stripe), u"⚠ parse error"_s);

    EXPECT_EQ(ordersOf(Stripe), u"🛒 2 orders"_s);
}

TEST_F(BoundedHistory, asksForNoPageAfterAnHour)
{
    meanwhile = [this] { clock.pass(20min); };

    for (const RevenueProvider provider : { Stripe, LemonSqueezy, Dodo }) {
        pages = 0;
        EXPECT_EQ(ordersOf(provider), u"⚠ parse error"_s);
        EXPECT_EQ(pages, 4); // The last of them at the full hour.
    }
}

TEST_F(BoundedHistory, isWholeWhereItsLastPageIsAskedForWithinTheHour)
{
    meanwhile = [this] { clock.pass(59min); };
    lastPage = 2;

    EXPECT_EQ(ordersOf(Dodo), u"🛒 2 orders"_s);
}

TEST_F(BoundedHistory, countsTheHourWhateverTheClockIsSetTo)
{
    meanwhile = [this] { clock.advance(86'400); };
    lastPage = 4;

    EXPECT_EQ(ordersOf(LemonSqueezy), u"🛒 4 orders"_s);
}

TEST_F(BoundedHistory, asksForNoPageByACursorThatFitsNoAddress)
{
    answer = [this](const ReceivedRequest &) {
        ++pages;
        return page(QByteArray(20'000, 'x'));
    };

    EXPECT_EQ(ordersOf(Stripe), u"⚠ url error"_s);
    EXPECT_EQ(ordersOf(Dodo), u"⚠ url error"_s);
    EXPECT_EQ(pages, 2);
}

} // namespace
} // namespace glimmet
