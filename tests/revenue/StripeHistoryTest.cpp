#include "tests/revenue/StripeHistory.h"
#include "revenue/RevenueFormat.h"
#include "tests/revenue/ServedRevenue.h"

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

using Ending = ServerAnswer::Ending;

constexpr int pages = 60;

/// A long history of charges.
class StripeHistoryRead : public ServedRevenue {
protected:
    StripeHistoryRead()
    {
        answer = [this](const ReceivedRequest &request) {
            const int page = StripeHistory::pageAsked(request.target);
            return page == badPage ? badAnswer : good(page);
        };
    }
    static ServerAnswer good(int page) { return { .body = StripeHistory::page(page, pages) }; }
    static RevenueTotals expected()
    {
        RevenueTotals totals;
        for (int charge = 0; charge < pages * StripeHistory::chargesPerPage; ++charge) {
            totals.revenue += StripeHistory::countedCents(charge);
            totals.orders += StripeHistory::counts(charge) ? 1 : 0;
            totals.max = std::max(totals.max, StripeHistory::countedCents(charge));
        }
        return totals;
    }
    static RevenueQuery stripe(RevenueMetric metric = RevenueMetric::Revenue)
    {
        RevenueQuery stripe = query(RevenueProvider::Stripe);
        stripe.metric = metric;
        return stripe;
    }
    /// The pages that were asked for, in the order of the requests.
    QList<int> pagesAsked() const
    {
        QList<int> asked;
        for (const QByteArray &target : targets())
            asked.append(StripeHistory::pageAsked(target));
        return asked;
    }
    static QList<int> firstPages(int count)
    {
        QList<int> numbers;
        for (int page = 0; page < count; ++page)
            numbers.append(page);
        return numbers;
    }

    int badPage = -1;
    ServerAnswer badAnswer;
};

TEST_F(StripeHistoryRead, givesTheExactTotal)
{
    const QString text = fetched(stripe());

    EXPECT_EQ(text, format(RevenueMetric::Revenue, expected(), u"USD"_s));
    const QByteArray sums =
        QByteArray::number(expected().revenue) + "¢, " + QByteArray::number(expected().orders) + " charges\n";
    EXPECT_TRUE(log.written().endsWith("[glimmet] Stripe [All Time/revenue/usd]: " + sums));
    EXPECT_GT(expected().orders, 4000);
}

TEST_F(StripeHistoryRead, asksForThePagesInOrderAndForNoneTwiceOverOneConnection)
{
    fetched(stripe());

    EXPECT_EQ(pagesAsked(), firstPages(pages));
    EXPECT_EQ(server.connections(), 1);
    EXPECT_EQ(texts.size(), 1);
}

TEST_F(StripeHistoryRead, goesOnToItsEndWhateverThePeriod)
{
    RevenueQuery today = stripe(RevenueMetric::Orders);
    today.period = RevenueMode::Today;

    EXPECT_EQ(fetched(today), u"🛒 0 orders"_s);

    EXPECT_EQ(pagesAsked(), firstPages(pages));
}

TEST_F(StripeHistoryRead, dropsTheTotalsWhenALaterPageIsRefused)
{
    badPage = 42;
    badAnswer = { .status = 401, .body = R"({"error":{"type":"invalid_request_error"}})" };

    EXPECT_EQ(fetched(stripe()), u"⚠ invalid key"_s);

    EXPECT_EQ(pagesAsked(), firstPages(43));
    EXPECT_FALSE(log.written().contains("charges\n"));
}

TEST_F(StripeHistoryRead, dropsTheTotalsWhenALaterPageIsCut)
{
    badPage = 7;
    badAnswer = { .body = StripeHistory::page(7, pages), .ending = Ending::CutInBody };

    EXPECT_EQ(fetched(stripe()), u"⚠ the connection was lost"_s);
    EXPECT_EQ(texts.size(), 1);
}

TEST_F(StripeHistoryRead, dropsTheTotalsWhenALaterPageCannotBeRead)
{
    badPage = 7;
    badAnswer = { .body = StripeHistory::page(7, pages).chopped(1) };

    EXPECT_EQ(fetched(stripe()), u"⚠ parse error"_s);
    EXPECT_EQ(pagesAsked(), firstPages(8));
}

TEST_F(StripeHistoryRead, startsFromNothingAfterAFailure)
{
    badPage = 7;
    badAnswer = { .status = 500 };
    EXPECT_EQ(fetched(stripe()), u"⚠ http 500"_s);
    badAnswer = good(7);

    EXPECT_EQ(fetched(stripe(RevenueMetric::Orders)), format(RevenueMetric::Orders, expected(), u"USD"_s));
}

TEST_F(StripeHistoryRead, isReadByTwoChainsAtOnceThatDoNotMix)
{
    services->fetch(stripe(RevenueMetric::Revenue), collected());
    services->fetch(stripe(RevenueMetric::Top), collected());
    ASSERT_TRUE(waitForTexts(2));

    texts.sort();
    EXPECT_EQ(texts,
        (QStringList{ format(RevenueMetric::Top, expected(), u"USD"_s),
            format(RevenueMetric::Revenue, expected(), u"USD"_s) }));
    QList<int> asked = pagesAsked();
    ASSERT_EQ(asked.size(), 2 * pages);
    std::sort(asked.begin(), asked.end());
    for (int i = 0; i < asked.size(); ++i)
        EXPECT_EQ(asked[i], i / 2);
}

TEST_F(StripeHistoryRead, endsSilentlyWithItsService)
{
    services->fetch(stripe(), collected());
    ASSERT_TRUE(waitForRequests(5));

    services.reset();

    // What was on its way is answered, and the service asks for no more.
    const qsizetype asked = server.requests().size();
    QTest::qWait(300);
    EXPECT_LE(server.requests().size(), asked + 1);
    EXPECT_TRUE(texts.isEmpty());
}

TEST_F(StripeHistoryRead, endsSilentlyWithTheNetwork)
{
    services->fetch(stripe(), collected());
    ASSERT_TRUE(waitForRequests(5));

    services.reset();
    http.reset();
    QCoreApplication::processEvents();

    EXPECT_TRUE(texts.isEmpty());
}

} // namespace
} // namespace glimmet
