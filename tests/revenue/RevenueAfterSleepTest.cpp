#include "revenue/RevenueReport.h"
#include "tests/support/FakeRevenueFetcher.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/MemoryKeyStore.h"
#include "tests/support/Printing.h"

#include <QSignalSpy>

#include <gmock/gmock.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// A report with a figure whose machine has just slept: the fetch with the number 1 is that of the awakening.
class RevenueAfterSleep : public testing::Test {
protected:
    RevenueAfterSleep()
    {
        report.startTimer();
        fetcher.answer(0, u"💰 $1.00"_s);
        timers.advance(100s);
        report.startAnew();
    }
    std::size_t fetches() const { return fetcher.count(); }
    void failLatest() { fetcher.failWithoutNetwork(fetches() - 1); }

    bool isOnShow = false;
    ManualClock clock;
    ManualTimers timers{ clock };
    FakeRevenueFetcher fetcher;
    MemoryKeyStore keys;
    RevenueReport report{ { clock, timers, &fetcher, &keys, [this] { return isOnShow; } } };
};

TEST_F(RevenueAfterSleep, isFetchedAtOnceAndFiveMinutesLater)
{
    EXPECT_EQ(fetches(), 2U);
    fetcher.answer(1, u"💰 $2.00"_s);

    timers.advance(300s - 1ms);
    EXPECT_EQ(fetches(), 2U);
    timers.advance(1ms);
    EXPECT_EQ(fetches(), 3U);
}

TEST_F(RevenueAfterSleep, isTriedAgainThreeTimesWhileThereIsNoNetwork)
{
    for (const auto &[wait, count] :
        std::vector<std::pair<std::chrono::seconds, std::size_t>>{ { 5s, 3 }, { 10s, 4 }, { 30s, 5 } }) {
        failLatest();
        timers.advance(wait - 1ms);
        EXPECT_EQ(fetches(), count - 1);
        timers.advance(1ms);
        EXPECT_EQ(fetches(), count);
    }

    failLatest();
    timers.advance(250s);
    EXPECT_EQ(fetches(), 5U);
}

TEST_F(RevenueAfterSleep, keepsItsFigureUntilTheLastTryFails)
{
    QSignalSpy changes(&report, &RevenueReport::labelChanged);
    for (const auto wait : { 5s, 10s, 30s }) {
        EXPECT_TRUE(report.isFetching());
        failLatest();
        EXPECT_FALSE(report.isFetching());
        EXPECT_EQ(report.lastError(), std::nullopt);
        timers.advance(wait);
    }
    EXPECT_EQ(report.label(), u"💰 $1.00"_s);
    EXPECT_EQ(changes.count(), 0);

    failLatest();

    EXPECT_EQ(report.label(), u"⚠ the server cannot be found"_s);
    EXPECT_EQ(report.lastError(), u"⚠ the server cannot be found"_s);
}

TEST_F(RevenueAfterSleep, keepsNoErrorAndCallsNothingFreshUntilTheLastTryFails)
{
    clock.advance(3600);
    for (const auto wait : { 5s, 10s, 30s }) {
        failLatest();
        EXPECT_TRUE(report.problems().isEmpty());
        EXPECT_TRUE(report.isStale());
        timers.advance(wait);
    }

    failLatest();

    EXPECT_EQ(report.problems().value(RevenueProvider::Polar),
        (FetchProblem{ u"⚠ the server cannot be found"_s, clock.now() }));
}

TEST_F(RevenueAfterSleep, showsTheNewFigureOnceATryReachesThePlatform)
{
    failLatest();
    timers.advance(5s);

    fetcher.answer(2, u"💰 $2.00"_s);
    timers.advance(250s);

    EXPECT_EQ(report.label(), u"💰 $2.00"_s);
    EXPECT_EQ(fetches(), 3U);
}

TEST_F(RevenueAfterSleep, showsAnErrorOfAnotherKindAtOnceAndDoesNotTryAgain)
{
    fetcher.answer(1, u"⚠ invalid key"_s);

    EXPECT_EQ(report.label(), u"⚠ invalid key"_s);
    EXPECT_EQ(report.lastError(), u"⚠ invalid key"_s);
    timers.advance(250s);
    EXPECT_EQ(fetches(), 2U);
}

TEST_F(RevenueAfterSleep, doesNotDoubleATryThatIsUnderWay)
{
    timers.advance(15s);
    EXPECT_EQ(fetches(), 2U);

    failLatest();
    EXPECT_EQ(report.label(), u"💰 $1.00"_s);
    timers.advance(30s);
    EXPECT_EQ(fetches(), 3U);
}

TEST_F(RevenueAfterSleep, showsTheFailureOfATryThatEndsAfterTheLastMoment)
{
    timers.advance(46s);

    failLatest();

    EXPECT_EQ(report.label(), u"⚠ the server cannot be found"_s);
    EXPECT_EQ(fetches(), 2U);
}

TEST_F(RevenueAfterSleep, tellsWhoAskedMeanwhileThatThereIsNoNetwork)
{
    failLatest();

    report.fetch();
    failLatest();

    EXPECT_EQ(report.label(), u"⚠ the server cannot be found"_s);
    timers.advance(5s);
    EXPECT_EQ(fetches(), 4U);
}

TEST_F(RevenueAfterSleep, keepsAnErrorThatIsOnShowAsOne)
{
    fetcher.answer(1, u"⚠ http 500"_s);

    report.startAnew();
    failLatest();

    EXPECT_EQ(report.label(), u"⚠ http 500"_s);
    EXPECT_EQ(report.lastError(), u"⚠ http 500"_s);
}

TEST_F(RevenueAfterSleep, beginsItsTriesAnewByAnotherSleep)
{
    failLatest();
    timers.advance(14s);
    failLatest();

    report.startAnew();
    failLatest();
    timers.advance(5s);
    failLatest();

    EXPECT_EQ(fetches(), 5U);
    EXPECT_EQ(report.label(), u"💰 $1.00"_s);
}

TEST_F(RevenueAfterSleep, isNotTriedAgainOnceStopped)
{
    failLatest();

    report.stopTimer();
    timers.advance(1h);

    EXPECT_EQ(fetches(), 2U);
    EXPECT_THAT(timers.running(), testing::IsEmpty());
}

TEST_F(RevenueAfterSleep, isFetchedOnceWithWhatTheKeyStoreCanTellByThen)
{
    isOnShow = true;
    keys.items() = { { u"polar_api_key"_s, "pat_1" } };
    keys.lock();
    report.loadCredentials();
    keys.unlock(); // It tells of that from the event loop, which does not run here.

    report.startAnew();

    ASSERT_EQ(fetches(), 3U);
    EXPECT_EQ(fetcher.query(2).apiKey.characters(), u"pat_1"_s);
}

TEST(RevenueWithoutSleep, showsAtOnceThatThereIsNoNetwork)
{
    ManualClock clock;
    ManualTimers timers{ clock };
    FakeRevenueFetcher fetcher;
    RevenueReport report{ { clock, timers, &fetcher, nullptr, [] { return false; } } };
    report.startTimer();

    fetcher.failWithoutNetwork(0);

    EXPECT_EQ(report.label(), u"⚠ the server cannot be found"_s);
    timers.advance(299s);
    EXPECT_EQ(fetcher.count(), 1U);
}

} // namespace
} // namespace glimmet
